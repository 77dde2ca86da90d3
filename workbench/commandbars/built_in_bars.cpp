#include "workbench/commandbars/built_in_bars.h"

namespace quor::workbench {
namespace {

constexpr const wchar_t* kMenus[] = {L"&File",  L"&Edit",    L"&View", L"&Go",
                                     L"&Tools", L"&Actions", L"&Help"};
constexpr const wchar_t* kButtons[] = {L"&New",     L"|&Print...",     L"&Delete", L"|&Reply",
                                       L"For&ward", L"|Send/Re&ceive", L"|F&ind"};

constexpr BuiltInBar kBars[] = {
    {L"Menu Bar", mso::kMenuBar, 1, mso::kPopup, 30002, kMenus},
    {L"Standard", mso::kNormalBar, 2, mso::kButton, 40001, kButtons},
};

}  // namespace

std::span<const BuiltInBar> BuiltInBars() noexcept {
  return kBars;
}

}  // namespace quor::workbench
