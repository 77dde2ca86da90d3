#ifndef QUOR_TESTS_TOOLBAR_FACES_FIXTURE_H
#define QUOR_TESTS_TOOLBAR_FACES_FIXTURE_H

#include <string>

#include "toolbar/control_faces.h"

namespace quor {

// A string table whose texts are the requested ids.
struct CNumberedTexts final : IStringTable {
  std::wstring Text(int id) const override { return L"#" + std::to_wstring(id); }
};

// A telephone's state and lists, and the faces of the controls.
struct FacesFixture {
  TelephoneState state{};
  Configuration configuration;
  CNumberedTexts texts;

  CControlFaces Faces() const { return {state, configuration, texts}; }

  void Lines(uint8_t line1, uint8_t line2, uint8_t cell, uint8_t cidLine = 0) {
    state.record.line1State = line1;
    state.record.line2State = line2;
    state.record.cellState = cell;
    state.caller.cidLine = cidLine;
  }
};

}  // namespace quor

#endif
