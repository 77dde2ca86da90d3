#include "workbench/ui/face.h"

namespace quor::workbench {
namespace {

template <class Matches>
const ControlFace* FindDeep(const std::vector<ControlFace>& faces, const Matches& matches) {
  for (const ControlFace& face : faces) {
    if (matches(face)) return &face;
  }
  for (const ControlFace& face : faces) {
    if (const ControlFace* found = FindDeep(face.items, matches); found != nullptr) return found;
  }
  return nullptr;
}

const ControlFace* FindStep(const std::vector<ControlFace>& faces, const std::wstring& step) {
  for (const ControlFace& face : faces) {
    if (face.id == step) return &face;
  }
  for (const ControlFace& face : faces) {
    if (PlainCaption(face.caption) == step) return &face;
  }
  return nullptr;
}

}  // namespace

const wchar_t* KindName(ControlKind kind) noexcept {
  constexpr const wchar_t* kNames[] = {L"button", L"combo box", L"edit", L"drop-down",
                                       L"menu",   L"separator", L"label"};
  return kNames[static_cast<size_t>(kind)];
}

const ControlFace* FindFace(const std::vector<ControlFace>& faces,
                            std::span<const std::wstring> path) noexcept {
  if (path.empty()) return nullptr;
  const std::wstring& first = path.front();
  const ControlFace* found =
      FindDeep(faces, [&first](const ControlFace& face) { return face.id == first; });
  if (found == nullptr) {
    found = FindDeep(
        faces, [&first](const ControlFace& face) { return PlainCaption(face.caption) == first; });
  }
  for (size_t step = 1; found != nullptr && step < path.size(); ++step) {
    found = FindStep(found->items, path[step]);
  }
  return found;
}

std::wstring PlainCaption(const std::wstring& caption) {
  std::wstring plain;
  for (size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == L'&') {
      if (++at == caption.size()) break;
    }
    plain += caption[at];
  }
  return plain;
}

}  // namespace quor::workbench
