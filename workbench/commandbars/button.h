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

  bool BuiltInFace() const;
  void SetBuiltInFace(const CArguments& arguments);
  long FaceId() const;
  void SetFaceId(const CArguments& arguments);
  void PasteFace();
  std::wstring ShortcutText() const;
  void SetShortcutText(const CArguments& arguments);
  long State() const;
  void SetState(const CArguments& arguments);
  long Style() const;
  void SetStyle(const CArguments& arguments);
  IDispatch* Picture() const;
  void SetPicture(const CArguments& arguments);
  IDispatch* Mask() const;
  void SetMask(const CArguments& arguments);
  void ComposeFace();

  long m_faceId = 0;
  long m_state = 0;
  long m_style = mso::kAutomatic;
  std::wstring m_shortcut;
  PicturePtr m_picture;
  PicturePtr m_mask;
  PixelsPtr m_pixels;
};

}  // namespace quor::workbench

#endif
