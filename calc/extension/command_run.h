#pragma once
// One run of a command on the host attached to the component (support/host_session.h): a new
// analysis object, the options set through its properties, Results(OverWrite).
//
// A failure comes back as the sentence the orvella command prints for it (cli/error_messages.h,
// without the "orvella: " in front), worked out from the same error, the same record of the
// failed column and, for angles outside 0 to 360, the same first offending cell. A success
// brings the notes the analysis kept where its kept arithmetic rules changed a value, in the
// sentences the command prints as warnings (cli/arithmetic_notes.h). Nothing here shows
// anything: the caller decides between a message box and a dispatch result.

#include <string>
#include <vector>

#include "calc/extension/command_options.h"

namespace orv::extension {

struct RunOutcome {
  bool succeeded = false;
  // On success the pasted block with its sheet ("Sheet2!$A$1:$D$7"); on failure the sentence.
  std::string text;
  // On success, one sentence per note; none with Textbook, or where no kept rule bit.
  std::vector<std::string> notes;
};

RunOutcome runCommand(Command command, const OptionValues& values);

}  // namespace orv::extension
