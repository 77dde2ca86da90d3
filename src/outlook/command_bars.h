#ifndef QUOR_OUTLOOK_COMMAND_BARS_H
#define QUOR_OUTLOOK_COMMAND_BARS_H

#include <cstdint>
#include <string>
#include <string_view>

#include "com/dispatch_object.h"

namespace quor {

// Office's command bars, as far as the toolbars use them.

inline constexpr long kControlButton = 1;
inline constexpr long kControlComboBox = 4;
inline constexpr long kControlPopup = 10;

inline constexpr int32_t kButtonIconAndCaption = 3;
inline constexpr int32_t kComboLabel = 1;
inline constexpr int32_t kWidthOfLongestItem = -1;

// The published event interfaces, and the one event of each.
extern const IID kCommandBarButtonEvents;
extern const IID kCommandBarComboBoxEvents;
inline constexpr DISPID kEventClick = 1;   // Click(Ctrl, Cancel)
inline constexpr DISPID kEventChange = 1;  // Change(Ctrl)

class CCommandBarControls;

// Any control. Tags must be unique: controls with equal tags raise each other's events.
class CCommandBarControl : public CDispatchObject {
 public:
  CCommandBarControl() = default;
  explicit CCommandBarControl(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  void SetCaption(std::wstring_view caption) const;
  void SetTag(std::wstring_view tag) const;
  void SetEnabled(bool enabled) const;
  void SetVisible(bool visible) const;
  void SetWidth(int32_t pixels) const;
  void Delete() const;

 protected:
  CCommandBarControl(const IDispatchPtr& object, REFIID iid) : CDispatchObject(object, iid) {}
};

class CCommandBarButton : public CCommandBarControl {
 public:
  CCommandBarButton() = default;
  explicit CCommandBarButton(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  void SetStyle(int32_t style) const;
  // Sets the picture first, then the mask; both are IPictureDisp objects of type bitmap.
  void SetPicture(IDispatch* picture) const;
  void SetMask(IDispatch* mask) const;
};

class CCommandBarComboBox : public CCommandBarControl {
 public:
  CCommandBarComboBox() = default;
  explicit CCommandBarComboBox(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  std::wstring Text() const;
  void SetText(std::wstring_view text) const;
  int32_t ListIndex() const;  // from 1; 0 if the text was typed
  void AddItem(std::wstring_view text) const;
  void Clear() const;
  void SetStyle(int32_t style) const;
  // Width of the opened list in pixels.
  void SetDropDownWidth(int32_t width) const;
};

class CCommandBarPopup : public CCommandBarControl {
 public:
  CCommandBarPopup() = default;
  explicit CCommandBarPopup(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  CCommandBarControls Controls() const;
};

class CCommandBarControls : public CDispatchObject {
 public:
  CCommandBarControls() = default;
  explicit CCommandBarControls(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  // Adds a temporary control at the end.
  IDispatchPtr Add(long controlType) const;
};

class CCommandBar : public CDispatchObject {
 public:
  CCommandBar() = default;
  explicit CCommandBar(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  CCommandBarControls Controls() const;
  void Delete() const;
  bool Visible() const;
  void SetVisible(bool visible) const;
  int32_t Position() const;
  void SetPosition(int32_t position) const;
  int32_t RowIndex() const;
  void SetRowIndex(int32_t row) const;
  int32_t Left() const;
  void SetLeft(int32_t pixels) const;
  int32_t Top() const;
  void SetTop(int32_t pixels) const;
  int32_t Width() const;
  int32_t Height() const;
};

class CCommandBars : public CDispatchObject {
 public:
  CCommandBars() = default;
  explicit CCommandBars(const IDispatchPtr& object);
  static REFIID InterfaceId() noexcept;

  // Adds a temporary bar, invisible until shown.
  CCommandBar Add(std::wstring_view name, long position) const;
  // Throws if there is no bar of this name.
  CCommandBar Item(std::wstring_view name) const;
  // The first control of this type and tag on any of the window's bars; empty if there is none.
  IDispatchPtr FindControl(long controlType, std::wstring_view tag) const;
};

}  // namespace quor

#endif
