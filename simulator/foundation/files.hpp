// Leads Foundation's methods that open paths into the device root: dictionaries and arrays from and
// to files, the file manager, file handles, data. Once, at set-up.
#pragma once

namespace simulator {

void installFiles();

}  // namespace simulator
