#pragma once

// The exit statuses of every `quilom` command, one table for all of them, so that a script can
// tell a refused request from a failed run, and a run that finished with something left over
// from one that finished clean. `quilom --help` prints this table.
namespace quilom::cli {

enum ExitCode : int {
  kExitDone = 0,
  // Nothing usable was written: a file could not be read or written, a table is missing, or the
  // text holds characters the target encoding cannot hold (under the default policy).
  kExitFailed = 1,
  // The command line itself is wrong: an unknown option or encoding, a missing value.
  kExitUsage = 2,
  // The output was written, but some text was left unconverted or some characters were skipped
  // or replaced; the warnings on standard error say what and where.
  kExitLeftOvers = 3,
  // `detect`: the text was read and named, but it is not in a legacy Tamil encoding (English,
  // Unicode Tamil, UTF-16 text or binary data).
  kExitNotLegacyTamil = 4,
};

inline constexpr const char* kExitCodeHelp =
    "Exit status: 0 done; 1 failed (nothing usable written); 2 wrong command line;\n"
    "  3 written, with text left unconverted or characters skipped or replaced (see the warnings);\n"
    "  4 detect only: the text is not in a legacy Tamil encoding (it says what the text is).\n";

}  // namespace quilom::cli
