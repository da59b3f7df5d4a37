// Parses any words, separated by zero bytes. Accepted values must survive being written out and
// parsed again; errors must be one line.

#include "clitools/CommandLine.h"

#include <algorithm>

#include "../unit/lab/Parameters.h"
#include "baselibs/Strings.h"

using namespace CliTools;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::shared_ptr<InputSpec> kSpec = MakeSpec();
  const std::string text(data, data + size);
  const auto parts = BaseLibs::Split(text, '\0');
  const std::vector<std::string> words(parts.begin(), parts.end() - (parts.back().empty() ? 1 : 0));
  const auto parse = [](const std::vector<std::string>& given) {
    return WriteOut(*kSpec, *ParseParameters(*kSpec, given));
  };
  std::vector<std::string> written;
  try {
    written = parse(words);
  } catch (const UsageError& error) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    if (std::ranges::any_of(std::string(error.what()), isControl)) throw;
    return 0;
  }
  if (parse(written) != written) throw std::logic_error("the values differ");
  return 0;
}
