#include "workbench/ui/face.h"

namespace quor::workbench {
namespace {

template <class Matches>
const ControlFace* Find(const std::vector<ControlFace>& faces, bool deep, const Matches& matches) {
  for (const ControlFace& face : faces) {
    if (matches(face)) return &face;
  }
  for (const ControlFace& face : faces) {
    const ControlFace* found = deep ? Find(face.items, deep, matches) : nullptr;
    if (found != nullptr) return found;
  }
  return nullptr;
}

const ControlFace* FindNamed(const std::vector<ControlFace>& faces, bool deep,
                             const std::wstring& name) {
  const ControlFace* found =
      Find(faces, deep, [&name](const ControlFace& face) { return face.id == name; });
  if (found != nullptr) return found;
  return Find(faces, deep,
              [&name](const ControlFace& face) { return PlainCaption(face.caption) == name; });
}

}  // namespace

const wchar_t* KindName(ControlKind kind) noexcept {
  constexpr const wchar_t* kNames[] = {L"button", L"combo box", L"menu"};
  return kNames[static_cast<size_t>(kind)];
}

const ControlFace* FindFace(const std::vector<ControlFace>& faces,
                            std::span<const std::wstring> path) noexcept {
  if (path.empty()) return nullptr;
  const ControlFace* found = FindNamed(faces, true, path.front());
  for (const std::wstring& step : path.subspan(1)) {
    if (found != nullptr) found = FindNamed(found->items, false, step);
  }
  return found;
}

const ControlFace* FindFace(const std::vector<ControlFace>& faces, int handle) noexcept {
  return Find(faces, true, [handle](const ControlFace& face) { return face.handle == handle; });
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
