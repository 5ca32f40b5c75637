// File-system helpers of the foundation layer: the path form handed to the
// operating system, and the making of a folder chain.
#ifndef OX_RESULT_FS_H
#define OX_RESULT_FS_H

#include <string>

// `path` as the operating system takes it: each backslash becomes '/'.
std::string OxOsPath(const char *path);

// Makes the folder `path` and any missing folder in front of it; both '\'
// and '/' separate folders. True when the folder exists afterwards.
bool OxMakeFolders(const char *path);

#endif
