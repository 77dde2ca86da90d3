#ifndef QUOR_DIALOGS_NAME_REASON_H
#define QUOR_DIALOGS_NAME_REASON_H

#include <string>

#include "resources/string_table.h"
#include "telephone/collaborators.h"

namespace quor {

// Why a name is shown, for the user: "9 of 11 digits: Mobile of Anna Lee". A second line follows if
// the match is short or shared: "2 more contacts end in these digits". Empty for a value that is no
// contact's name.
std::wstring NameReason(const CallerValue& name, const IStringTable& strings);

}  // namespace quor

#endif
