#pragma once

// The Windows program and the Windows command line read and write "ANSI" text in the code page
// the system uses, and open files through their short paths, as the data files expect. Call once
// at start-up, before any file is read.
namespace quilom::settings::win32 {

void InstallSystemTextSettings();

}  // namespace quilom::settings::win32
