#include "autocli/Batch.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "autocli/Terminal.h"
#include "baselibs/HostError.h"
#include "clitools/Display.h"
#include "clitools/UsageError.h"
#include "clitools/Words.h"
#include "corectl/session/Session.h"

namespace AutoCliProgram {

using CliTools::UsageError;

namespace {

/// Reads command lines one at a time, because the file may still be written to.
class CommandLineReader {
 public:
  explicit CommandLineReader(const std::string& name)
      : isInput_(name == "-"),
        name_(isInput_ ? "standard input" : name),
        file_(isInput_ ? stdin : std::fopen(name.c_str(), "re")) {
    if (file_ == nullptr) Fail();
  }
  ~CommandLineReader() {
    if (!isInput_ && file_ != nullptr) std::fclose(file_);
    std::free(buffer_);
  }
  CommandLineReader(const CommandLineReader&) = delete;
  CommandLineReader& operator=(const CommandLineReader&) = delete;

  /// Reads a line and the lines that continue it. Returns false at the end of the file. Throws
  /// as `Fail` does.
  bool Read(std::string& line) {
    if (!ReadLine(line)) return false;
    begin_ = number_;
    CliTools::WordScanner scanner;  // kept: to begin anew at each line would be quadratic
    scanner.Scan(line);
    for (std::string next; scanner.IsContinued() && ReadLine(next); scanner.Scan(next)) {
      line.pop_back();
      line += next;
    }
    return true;
  }

  /// Returns "FILE:LINE: ", where the last command line begins.
  std::string GetLocation() const { return name_ + ':' + std::to_string(begin_) + ": "; }

 private:
  bool ReadLine(std::string& line) {
    errno = 0;
    const ssize_t length = getline(&buffer_, &capacity_, file_);
    // getline also returns -1 when it runs out of memory; do not mistake that for end of file.
    if (length < 0 && std::feof(file_) == 0) Fail();
    if (length < 0) return false;
    line.assign(buffer_, static_cast<std::size_t>(length));
    for (const char end : {'\n', '\r'}) {
      if (line.ends_with(end)) line.pop_back();
    }
    if (number_ == 0 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    ++number_;
    return true;
  }

  [[noreturn]] void Fail() const {
    const int reason = errno;
    const std::string text = "--batch: " + CliTools::Quote(name_) +
                             " cannot be read: " + std::generic_category().message(reason);
    if (reason == ENOMEM) throw BaseLibs::HostError(text);  // not a usage error
    throw UsageError(text);
  }

  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

  bool isInput_;
  std::string name_;
  std::FILE* file_;
  char* buffer_ = nullptr;
  std::size_t capacity_ = 0;
  std::size_t number_ = 0;
  std::size_t begin_ = 0;  ///< number of the command line's first line
};

Options ReadLineOptions(const std::vector<std::string>& words, const Options& defaults) {
  Options options = ReadOptions(words, defaults);
  if (!options.batch.empty() || options.keepGoing || options.echo) {
    throw UsageError("--batch, --keep-going and --echo are not for the lines of a batch");
  }
  if (options.pluginDirectory != defaults.pluginDirectory) {
    throw UsageError("--plugin-dir goes with --batch: all lines have the same commands");
  }
  return options;
}

ExitStatus RunOne(const std::string& line, const Options& defaults, const RunLine& runLine) {
  if (line.find('\0') != std::string::npos) throw UsageError("a NUL byte is not allowed");
  std::vector<std::string> words = CliTools::SplitWords(line);
  if (!words.empty() && words.front() == "autocli") words.erase(words.begin());
  return words.empty() ? kSuccess : runLine(ReadLineOptions(words, defaults));
}

}  // namespace

ExitStatus RunBatch(const Options& options, const RunLine& runLine) {
  CommandLineReader reader(options.batch);
  Options defaults = options;
  defaults.batch.clear();
  defaults.keepGoing = false;
  defaults.echo = false;
  if (!options.host.empty()) defaults.defaultHost = options.host;
  defaults.host.clear();
  ExitStatus highest = kSuccess;
  std::size_t failed = 0;
  for (std::string line; reader.Read(line);) {
    defaults.location = reader.GetLocation();
    if (options.echo) Print("> " + CliTools::Printable(line) + '\n');
    const ExitStatus status =
        Guard(defaults.location, [&] { return RunOne(line, defaults, runLine); });
    highest = std::max(highest, status);
    failed += status == kSuccess ? 0 : 1;
    if (status != kSuccess && !options.keepGoing) break;
    if (std::ferror(stdout) != 0) break;  // the results of further lines would be lost
  }
  Lab::Select({});  // closes the store, so that leak checkers report only leaks of commands
  if (options.keepGoing && failed > 0) {
    PrintError("autocli: " + std::to_string(failed) + (failed == 1 ? " line" : " lines") +
               " failed");
  }
  return highest;
}

}  // namespace AutoCliProgram
