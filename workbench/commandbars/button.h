#ifndef QUOR_WORKBENCH_COMMANDBARS_BUTTON_H
#define QUOR_WORKBENCH_COMMANDBARS_BUTTON_H

#include "workbench/commandbars/control.h"
#include "workbench/ui/picture.h"

namespace quor::workbench {

class CCommandBarButton final : public CCommandBarControl {
 public:
  CCommandBarButton(CModel& model, std::shared_ptr<CControlRegistry> registry, CCommandBar& bar);

  ControlFace Face() const override;
  // Raises Click at every sink of all buttons with the same id and tag.
  void Activate() override;

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  bool BuiltInFace() const { return !m_picture; }
  void SetBuiltInFace(const CArguments& arguments);
  long FaceId() const { return m_faceId; }
  void SetFaceId(const CArguments& arguments);
  std::wstring ShortcutText() const { return m_shortcut; }
  void SetShortcutText(const CArguments& arguments) { m_shortcut = arguments.Text(0); }
  long State() const { return m_state; }
  void SetState(const CArguments& arguments);
  long Style() const { return m_style; }
  void SetStyle(const CArguments& arguments);
  IDispatch* Picture() const { return m_picture.GetInterfacePtr(); }
  void SetPicture(const CArguments& arguments);
  IDispatch* Mask() const { return m_mask.GetInterfacePtr(); }
  void SetMask(const CArguments& arguments);
  void ComposeFace();

  long m_faceId = 0;
  long m_state = 0;
  long m_style = mso::kAutomatic;
  std::wstring m_shortcut;
  IPictureDispPtr m_picture;
  IPictureDispPtr m_mask;
  PixelsPtr m_pixels;
};

}  // namespace quor::workbench

#endif
