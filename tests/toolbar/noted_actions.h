#ifndef QUOR_TESTS_TOOLBAR_NOTED_ACTIONS_H
#define QUOR_TESTS_TOOLBAR_NOTED_ACTIONS_H

#include <string>
#include <utility>
#include <vector>

#include "text/ansi.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// Records the user's actions, one line each.
struct CNotedActions final : IToolbarActions {
  void ClickLine(uint8_t lineType) override { Note("line " + std::to_string(lineType)); }
  void ClickCell(int) override {}
  void ClickCaller(size_t) override {}
  void ClickSpeedDial(SpeedDialAction, size_t) override {}
  void ClickOptions() override {}
  void OnChangeComboBox(std::wstring_view text, int listIndex) override {
    Note("dial " + AnsiFromWide(text) + ' ' + std::to_string(listIndex));
  }
  void StoreDialText(std::wstring_view) override {}
  bool PickNumber(std::wstring_view number) override {
    Note("dial " + AnsiFromWide(number));
    return false;
  }
  bool DialsAtOnce(uint8_t) const override { return false; }
  bool DialOnLine(uint8_t, std::wstring_view) override { return false; }

  void Note(std::string line) { noted.push_back(std::move(line)); }
  std::vector<std::string> Take() { return std::exchange(noted, {}); }
  std::vector<std::string> noted;
};

}  // namespace quor

#endif
