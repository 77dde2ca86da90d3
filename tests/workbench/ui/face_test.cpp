#include "workbench/ui/face.h"

#include <gtest/gtest.h>

namespace quor::workbench {
namespace {

ControlFace Named(const wchar_t* id, const wchar_t* caption, std::vector<ControlFace> items = {}) {
  ControlFace face;
  face.id = id;
  face.caption = caption;
  face.items = std::move(items);
  return face;
}

TEST(Face, APathNamesByIdBeforeCaptionAndAtAnyDepth) {
  const std::vector<ControlFace> faces = {
      Named(L"A", L"X", {Named(L"A1", L"Same"), Named(L"", L"&Deep")}),
      Named(L"B", L"A1", {Named(L"B1", L"Same")}),
  };
  struct {
    std::vector<std::wstring> path;
    const ControlFace* found;
  } const rows[] = {
      {{L"B"}, &faces[1]},
      {{L"A1"}, &faces[0].items[0]},  // finds the id, not B's caption
      {{L"Deep"}, &faces[0].items[1]},
      {{L"Same"}, &faces[0].items[0]},
      {{L"B", L"Same"}, &faces[1].items[0]},
      {{L"B", L"A1"}, nullptr},
      {{L"C"}, nullptr},
      {{}, nullptr},
  };
  for (const auto& row : rows)
    EXPECT_EQ(FindFace(faces, row.path), row.found);
}

}  // namespace
}  // namespace quor::workbench
