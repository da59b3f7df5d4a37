#pragma once

#include "clitools/Display.h"
#include "clitools/Records.h"

namespace CliTools {

// Each hands the parts of its document to `sink`, a record at a time where it can.

void FormatBare(const MetaObject& root, const Pairs& parameters, const Style& style,
                const Sink& sink);
void FormatSimple(const MetaObject& root, const Pairs& parameters, const Style& style,
                  const Sink& sink);
/// `root` must hold records.
void FormatTable(const MetaObject& root, const Pairs& parameters, const Style& style,
                 const Sink& sink);
void FormatJson(const MetaObject& root, const Pairs& parameters, const Style& style,
                const Sink& sink);
/// `root` must hold records.
void FormatCsv(const MetaObject& root, const Pairs& parameters, const Style& style,
               const Sink& sink);

}  // namespace CliTools
