#ifndef QUOR_RESOURCES_MESSAGE_FONT_H
#define QUOR_RESOURCES_MESSAGE_FONT_H

#include <optional>

#include "resources/dialog_font.h"

namespace quor {

// The font of message boxes in the user's Windows, which Outlook's own dialogs also use: Segoe UI
// 9, unless the user has chosen larger text. Nothing if Windows does not report it.
std::optional<DialogFont> MessageFont();

}  // namespace quor

#endif
