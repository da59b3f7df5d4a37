// How a result is shown.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "clitools/Display.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// The formatters' names, in the order in which help lists them: those for people first.
std::vector<std::string> FormatterNames();

/// What each of them makes of a result.
using Descriptions = std::vector<std::pair<std::string, std::string>>;
Descriptions FormatterDescriptions();

/// The names of those that can show a result of this shape (a command's output template). "table"
/// and "csv" show records only.
std::vector<std::string> FormattersFor(const MetaObj::MetaObject& rootTemplate);

/// Whether `formatter` is one of `FormattersFor(rootTemplate)`.
bool CanShow(std::string_view formatter, const MetaObj::MetaObject& rootTemplate);

/// Hands a result as text to `sink`, in parts of some 64 KiB, so that the document of a long list
/// need not fit into memory. It ends in a newline unless it is empty. `parameters` are the
/// command's ("header:", "fields:", "units:"). The empty formatter name means the bare value: a
/// text, number or truth value as it is. A result that the formatter cannot show, such as a failed
/// command may leave, is shown by "simple". Throws `std::invalid_argument` for a name that is not
/// one of `FormatterNames()`.
///
/// Every formatter but the bare value yields valid UTF-8, whatever bytes the texts hold. "simple"
/// and "table" show control characters escaped; the other formats keep the value. Only these two
/// heed the page: captions stand out, and a table that is too wide is wrapped within its columns.
/// Where that would break words, it is shown as "simple" shows it.
void Format(const MetaObj::MetaObject& root, std::string_view formatter,
            const AutoCli::CommandSpec::Pairs& parameters, const Style& style, const Sink& sink);

/// The whole text.
std::string Format(const MetaObj::MetaObject& root, std::string_view formatter,
                   const AutoCli::CommandSpec::Pairs& parameters, const Style& style = {});

/// `parameters`, so that of the records in a result of this shape only `fields` are shown, in their
/// order. Throws `UsageError` for a field that is not among the shown ones or is named twice, and
/// when the result, which may be null, holds no records.
AutoCli::CommandSpec::Pairs SelectFields(const MetaObj::MetaObject* rootTemplate,
                                         AutoCli::CommandSpec::Pairs parameters,
                                         const std::vector<std::string>& fields);

}  // namespace CliTools
