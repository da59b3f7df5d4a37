#include "autocli/Batch.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "clitools/Text.h"
#include "clitools/UsageError.h"
#include "clitools/Words.h"

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
    if (length < 0 && std::ferror(file_) != 0) Fail();
    if (length < 0) return false;
    line.assign(buffer_, static_cast<std::size_t>(length));
    if (line.ends_with('\n')) line.pop_back();
    ++number_;
    return true;
  }

  /// "FILE:LINE: ", of the line that was read last.
  std::string GetPlace() const { return name_ + ':' + std::to_string(number_) + ": "; }

 private:
  [[noreturn]] void Fail() const {
    throw UsageError("--batch: " + CliTools::Quote(name_) +
                     " cannot be read: " + std::generic_category().message(errno));
  }

  bool isInput_;
  std::string name_;
  std::FILE* file_;
  char* buffer_ = nullptr;
  std::size_t capacity_ = 0;
  std::size_t number_ = 0;
};

Options ReadLineOptions(const std::vector<std::string>& words, const Options& defaults) {
  Options options = ReadOptions(words, defaults);
  if (!options.batch.empty() || options.keepGoing) {
    throw UsageError("--batch and --keep-going are not for the lines of a batch");
  }
  if (options.pluginDir != defaults.pluginDir) {
    throw UsageError("--plugin-dir goes with --batch: all lines have the same commands");
  }
  return options;
}

ExitStatus RunOne(CommandTree& tree, const std::string& line, const Options& defaults) {
  if (line.find('\0') != std::string::npos) throw UsageError("a NUL byte: this is no text");
  std::vector<std::string> words = CliTools::SplitWords(line);
  if (!words.empty() && words.front() == "autocli") words.erase(words.begin());  // as in a script
  return words.empty() ? kSuccess : RunLine(tree, ReadLineOptions(words, defaults));
}

}  // namespace

ExitStatus RunBatch(CommandTree& tree, const Options& options) {
  if (!options.words.empty()) {
    throw UsageError("--batch takes its commands from the file; " +
                     CliTools::Quote(options.words.front()) + " is one too many");
  }
  LineReader reader(options.batch);
  Options defaults = options;
  defaults.batch.clear();
  defaults.keepGoing = false;
  ExitStatus gravest = kSuccess;
  for (std::string line; reader.Read(line);) {
    defaults.place = reader.GetPlace();
    const ExitStatus status = Guard(defaults.place, [&] { return RunOne(tree, line, defaults); });
    gravest = std::max(gravest, status);
    const bool goesOn = status == kSuccess || options.keepGoing;
    if (!goesOn || std::ferror(stdout) != 0) break;  // results that nobody gets help nobody
  }
  return gravest;
}

}  // namespace AutoCliProgram
