#ifndef QUOR_MODULE_APPLICATION_DATA_FOLDER_H
#define QUOR_MODULE_APPLICATION_DATA_FOLDER_H

#include <string>

namespace quor {

// The current user's application-data folder, without a trailing "\". In the ANSI code page, as all
// our paths below it; empty when Windows does not tell.
std::string ApplicationDataFolder();

// Whether the folder's path has characters that the ANSI code page lacks: what is below it cannot
// be reached then, or somewhere else is.
bool IsApplicationDataOutsideCodePage();

}  // namespace quor

#endif
