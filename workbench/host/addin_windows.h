#ifndef QUOR_WORKBENCH_HOST_ADDIN_WINDOWS_H
#define QUOR_WORKBENCH_HOST_ADDIN_WINDOWS_H

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The add-in's windows as their user meets them: by name (IsCalled), their buttons by text. Every
// operation looks among the given windows, visible ones first, and throws CScenarioError where
// there is no such window, or the user could not do it.
WindowView DescribeWindow(HWND window);
void PressButton(const std::vector<HWND>& windows, const std::string& title,
                 const std::string& button);
// Fields are the input fields of the window in tab order, from 1.
void EnterText(const std::vector<HWND>& windows, const std::string& title, int field,
               const std::string& text);
void ActivateByUser(const std::vector<HWND>& windows, const std::string& title);
void CloseByUser(const std::vector<HWND>& windows, const std::string& title);

}  // namespace quor::workbench

#endif
