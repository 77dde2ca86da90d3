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
  void Click() override;

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  void SetStyle(const CArguments& arguments);
  void SetPicture(const CArguments& arguments);
  void SetMask(const CArguments& arguments);
  void ComposeFace();

  long m_style = mso::kAutomatic;
  IPictureDispPtr m_picture;
  IPictureDispPtr m_mask;
  PixelsPtr m_pixels;
};

}  // namespace quor::workbench

#endif
