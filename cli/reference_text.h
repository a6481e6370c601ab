#pragma once
// References given on the command line, tidied and checked before anything is read.
//
// Blanks around the text and around the commas and colons between its parts are dropped
// (" Data!A1:A9 , Data!C1:C9 " is Data!A1:A9,Data!C1:C9); blanks inside a quoted sheet name stay.
// Mistakes that a reference cannot be read past are wrong usage, said with what was probably
// meant:
//   --input "Sheet 2!A1:B6"     a sheet name with a blank must be quoted: 'Sheet 2'!A1:B6
//   --output results.xlsx        a file name where a cell is expected: -o writes the workbook
//   --bins 200,250,300           numbers where cells are expected: bins are a range of cells
// Everything else (a defined name, a sheet the workbook may not have) is left to the host.

#include <optional>
#include <string>
#include <string_view>

#include <CLI/CLI.hpp>

namespace orv::cli {

// The text with the blanks described above dropped.
std::string tidyReference(std::string_view text);

// The sentence for a mistake in a tidied reference given with `flag`; none when there is none.
std::optional<std::string> referenceMistake(const std::string& flag, std::string_view text);

// A transform for a reference option: tidies the value, and raises UsageError (cli/arguments.h)
// with the sentence for a mistake.
CLI::Validator referenceText(const std::string& flag);

}  // namespace orv::cli
