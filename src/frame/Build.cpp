// The version and commit, which script/check-plugin reads, in a section that strip keeps.
[[gnu::used, gnu::section(".dovra.build")]] static const char kBuild[] = DOVRA_BUILD;
