#ifndef QUOR_WORKBENCH_HOST_NEIGHBOURS_H
#define QUOR_WORKBENCH_HOST_NEIGHBOURS_H

#include <windows.h>

#include <vector>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Other add-ins on Outlook's thread, well-behaved or not. They are removed with this object.
class CNeighbours {
 public:
  CNeighbours() = default;
  ~CNeighbours() { Leave(); }
  CNeighbours(const CNeighbours&) = delete;
  CNeighbours& operator=(const CNeighbours&) = delete;

  // For Neighbour::ModalLoop, returns only when the neighbours are removed.
  void MoveIn(Neighbour neighbour);
  void Leave();

 private:
  void AddWindow(WNDPROC procedure, const wchar_t* className);
  void RunModalLoop();

  std::vector<HWND> m_windows;
  HHOOK m_hook = nullptr;
  bool m_modal = false;
};

}  // namespace quor::workbench

#endif
