#pragma once

#include "settings/data_folders.hpp"

// A save cut off by a crash or a power cut leaves its temporary file beside the settings file it
// was replacing. The program removes them when it starts, before any save of its own begins.
namespace quilom::settings {

// Removes the leftover temporaries in the data root, in each module folder below it and in the
// shared "inis" folder; returns how many.
int RemoveLeftoverSaves(const DataFolders& folders) noexcept;

}  // namespace quilom::settings
