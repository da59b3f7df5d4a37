// Formatting results.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "clitools/Display.h"
#include "clitools/Records.h"

namespace CliTools {

/// Returns the names of the formatters, each with a description.
Pairs Formatters();

/// Returns the names of the formatters for results of this shape: "table" and "csv" take only
/// records.
std::vector<std::string> FormattersFor(const MetaObject& rootTemplate);

/// Writes a result to `sink` in parts, so that the CSV or JSON of many records is never in memory
/// as a whole. A document ends in a newline unless it is empty.
///
/// `parameters` are the command's "header:", "fields:" and "units:". Without a formatter's name, a
/// value without records is written bare, byte for byte. A result that the formatter cannot show is
/// written by "simple". Throws `std::invalid_argument` for an unknown formatter.
///
/// All documents but a bare value are valid UTF-8. Of the style, "table" and "csv" heed the
/// header, "simple" and "table" the bold captions, and "table" the width: it is wrapped within its
/// columns or, where that would break words, written as "simple" writes it.
void Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
            const Style& style, const Sink& sink);

/// Returns the whole document.
std::string Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
                   const Style& style = {});

/// Returns `parameters` changed so that only these fields of the result's records are shown, in
/// this order. `fields` are separated by commas. Throws `UsageError` for an empty, unknown or
/// repeated field, and when the result, which may be null, holds no records.
Pairs SelectFields(const MetaObject* rootTemplate, Pairs parameters, const std::string& fields);

}  // namespace CliTools
