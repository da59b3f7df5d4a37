# What lowdown's pages lack: headings in capitals, and names neither hyphenated nor stretched.
/^\.TH/i .nr HY 0
/^\.TH/a .ad l
/^\.SH$/ { n; s/.*/\U&/; }
