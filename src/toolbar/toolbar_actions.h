#ifndef QUOR_TOOLBAR_TOOLBAR_ACTIONS_H
#define QUOR_TOOLBAR_TOOLBAR_ACTIONS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quor {

enum class SpeedDialAction { Call, Add, Edit, Erase };
inline constexpr size_t kSpeedDialActionCount = 4;

// Handles the user's actions on toolbar, ribbon and contact windows. Called inside a boundary:
// exceptions are allowed. Entries count from 0, newest first; an unknown entry is ignored.
class IToolbarActions {
 public:
  virtual void ClickLine(uint8_t lineType) = 0;  // see line_type.h
  virtual void ClickCell(int cell) = 0;          // 0 = Cell1 .. 3 = Cell4
  virtual void ClickCaller(size_t entry) = 0;
  virtual void ClickSpeedDial(SpeedDialAction action, size_t entry) = 0;
  virtual void ClickOptions() = 0;

  // Command bar: a number was typed (index 0) or picked (index from 1) in the dial box; dials it.
  virtual void OnChangeComboBox(std::wstring_view text, int listIndex) = 0;
  // Ribbon: stores the dial box's number for the next click on a line button.
  virtual void StoreDialText(std::wstring_view text) = 0;

  // These take a contact's number as the user typed it, punctuation included.

  // Dials a number picked from a contact's menu if a line is ready. True if the number must wait
  // for a click on a line button instead, which happens only on the ribbon.
  virtual bool PickNumber(std::wstring_view number) = 0;
  // Whether a click on this button dials at once, as an idle line on the ribbon does. In a
  // contact's window such a click is DialOnLine with the contact's number, empty if it has none;
  // true if it was dialled.
  virtual bool DialsAtOnce(uint8_t lineType) const = 0;
  virtual bool DialOnLine(uint8_t lineType, std::wstring_view number) = 0;

 protected:
  ~IToolbarActions() = default;
};

}  // namespace quor

#endif
