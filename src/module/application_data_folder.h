#ifndef QUOR_MODULE_APPLICATION_DATA_FOLDER_H
#define QUOR_MODULE_APPLICATION_DATA_FOLDER_H

#include <string>

namespace quor {

// The current user's application-data folder, without a trailing "\", in the ANSI code page like
// all our paths below it. Empty if Windows does not report it.
std::string ApplicationDataFolder();

// Whether the folder's path has characters outside the ANSI code page. Files below it then cannot
// be opened, or a different path is opened.
bool IsApplicationDataOutsideCodePage();

}  // namespace quor

#endif
