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

/// The lines of a file, one by one: somebody may still be writing it.
class LineReader {
 public:
  explicit LineReader(const std::string& name)
      : isInput_(name == "-"),
        name_(isInput_ ? "standard input" : name),
        file_(isInput_ ? stdin : std::fopen(name.c_str(), "re")) {
    if (file_ == nullptr) Fail();
  }
  ~LineReader() {
    if (!isInput_ && file_ != nullptr) std::fclose(file_);
    std::free(buffer_);
  }
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  /// False behind the last line. Throws `UsageError` when the file cannot be read.
  bool Read(std::string& line) {
    errno = 0;
    const ssize_t length = getline(&buffer_, &capacity_, file_);
    // A line for which there is no memory is neither the end nor a failure of the file.
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

  /// Reads a command line: a line and those that continue it. False after the last line. Throws
  /// `UsageError` when the file cannot be read.
  bool ReadCommandLine(std::string& line) {
    if (!Read(line)) return false;
    begin_ = number_;
    CliTools::WordScanner scanner;  // scans each line once, not the whole command line again
    scanner.Scan(line);
    for (std::string next; scanner.IsContinued() && Read(next); scanner.Scan(next)) {
      line.pop_back();
      line += next;
    }
    return true;
  }

  /// "FILE:LINE: ", of where the line that was read last begins.
  std::string GetPlace() const { return name_ + ':' + std::to_string(begin_) + ": "; }

 private:
  [[noreturn]] void Fail() const {
    const int reason = errno;
    const std::string text = "--batch: " + CliTools::Quote(name_) +
                             " cannot be read: " + std::generic_category().message(reason);
    if (reason == ENOMEM) throw BaseLibs::HostError(text);  // that is nobody's mistake
    throw UsageError(text);
  }

  static constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

  bool isInput_;
  std::string name_;
  std::FILE* file_;
  char* buffer_ = nullptr;
  std::size_t capacity_ = 0;
  std::size_t number_ = 0;
  std::size_t begin_ = 0;  ///< the number of the first of the lines that were read as one
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
  if (line.find('\0') != std::string::npos) throw UsageError("a NUL byte: this is no text");
  std::vector<std::string> words = CliTools::SplitWords(line);
  if (!words.empty() && words.front() == "autocli") words.erase(words.begin());  // as in a script
  return words.empty() ? kSuccess : runLine(ReadLineOptions(words, defaults));
}

}  // namespace

ExitStatus RunBatch(const Options& options, const RunLine& runLine) {
  LineReader reader(options.batch);
  Options defaults = options;
  defaults.batch.clear();
  defaults.keepGoing = false;
  defaults.echo = false;
  if (!options.host.empty()) defaults.defaultHost = options.host;
  defaults.host.clear();
  ExitStatus gravest = kSuccess;
  std::size_t failed = 0;
  for (std::string line; reader.ReadCommandLine(line);) {
    defaults.location = reader.GetPlace();
    if (options.echo) Print("> " + CliTools::Printable(line) + '\n');
    const ExitStatus status =
        Guard(defaults.location, [&] { return RunOne(line, defaults, runLine); });
    gravest = std::max(gravest, status);
    failed += status == kSuccess ? 0 : 1;
    const bool goesOn = status == kSuccess || options.keepGoing;
    if (!goesOn || std::ferror(stdout) != 0) break;  // results that nobody gets help nobody
  }
  Lab::Select({});  // closes the store, so that only what a line left behind is left
  if (options.keepGoing && failed > 0) {
    PrintError("autocli: " + std::to_string(failed) + (failed == 1 ? " line" : " lines") +
               " failed");
  }
  return gravest;
}

}  // namespace AutoCliProgram
