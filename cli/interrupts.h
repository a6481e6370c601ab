#pragma once
// Interrupts (Ctrl-C, kill, a closed terminal) end the command without leaving a half-written
// temporary file beside the output.
//
// installInterruptHandling blocks SIGINT, SIGTERM and SIGHUP in the calling thread, and so in
// every thread started after it, and starts one thread that waits for them. When one comes, that
// thread removes the temporary files of any write under way (xlsx/package_atomic_write.h), says
// "orvella: interrupted" on standard error and ends the process with 128 plus the signal's
// number (130, 143, 129), the status a shell gives a command ended by that signal. The file
// being written is left as it was: the rename that would replace it never happens.
//
// Call it once, first thing in main, before any thread is started.

namespace orv::cli {

void installInterruptHandling();

// Adds work to do when an interrupt ends the command, before the temporary files are removed:
// stopping the helper processes a run started (the Calc host's office). Actions run on the
// interrupt thread while the rest of the program may still run: they must be thread-safe.
// Adding the same action twice keeps one.
void atInterrupt(void (*action)());

}  // namespace orv::cli
