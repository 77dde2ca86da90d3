#ifndef QUOR_RESOURCES_MESSAGE_FONT_H
#define QUOR_RESOURCES_MESSAGE_FONT_H

#include <optional>

#include "resources/dialog_font.h"

namespace quor {

// The font in which the user's Windows shows message boxes, as Outlook's own dialogs do: Segoe UI
// 9, unless the user has chosen larger text. Nothing when the system does not give it.
std::optional<DialogFont> MessageFont();

}  // namespace quor

#endif
