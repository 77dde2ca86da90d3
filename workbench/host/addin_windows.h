#ifndef QUOR_WORKBENCH_HOST_ADDIN_WINDOWS_H
#define QUOR_WORKBENCH_HOST_ADDIN_WINDOWS_H

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The add-in's windows as a user sees them: windows by name (IsCalled), buttons by text. Each
// operation searches the given windows, visible ones first. Throws CScenarioError if there is no
// such window or a user could not do the action.
WindowView DescribeWindow(HWND window);
void PressButton(const std::vector<HWND>& windows, const std::string& title,
                 const std::string& button);
// `field` counts the window's input fields in tab order, from 1.
void EnterText(const std::vector<HWND>& windows, const std::string& title, int field,
               const std::string& text);
void ActivateByUser(const std::vector<HWND>& windows, const std::string& title);
// A control by its text.
HWND FindControl(const std::vector<HWND>& windows, const std::string& title,
                 const std::string& text);
HWND FindByTitle(const std::vector<HWND>& windows, const std::string& title);
void CloseByUser(const std::vector<HWND>& windows, const std::string& title);

}  // namespace quor::workbench

#endif
