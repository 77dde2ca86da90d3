#include "workbench/siusbxp/usb_host.h"
#include "workbench/siusbxp/program_base.h"

namespace quor::workbench {

CBaseSimulator& ProgramBase() {
  static CBaseSimulator base;
  return base;
}

}  // namespace quor::workbench

// The name must equal kUsbHostExport.
extern "C" __declspec(dllexport) quor::workbench::IUsbHost& WB_UsbHost() {
  return quor::workbench::ProgramBase();
}
