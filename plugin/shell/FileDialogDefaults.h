#pragma once
// The folder and the file name that a file dialog offers, taken from the
// path last chosen: split at its last separator, in buffers of 260 and 40
// wide characters.
#include <string>

struct FileDialogDefaults {
    std::u16string directory;
    std::u16string name;
};

// A path without a separator offers its text as the folder and no name. A
// part that doesn't fit its buffer is offered empty: a path of 260
// characters or more offers neither, a name of 40 or more no name, where a
// bounded copy would end the process.
FileDialogDefaults fileDialogDefaults(const std::u16string& lastPath);
