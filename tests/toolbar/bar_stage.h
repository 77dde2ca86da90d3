#ifndef QUOR_TESTS_TOOLBAR_BAR_STAGE_H
#define QUOR_TESTS_TOOLBAR_BAR_STAGE_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"
#include "settings/configuration.h"
#include "telephone/telephone_state.h"
#include "tests/toolbar/noted_actions.h"
#include "tests/toolbar/test_owner.h"
#include "toolbar/command_bar_toolbar.h"
#include "workbench/commandbars/command_bars.h"

namespace quor {

inline constexpr wchar_t kBarName[] = L"Telephone Plug-in";

// A command-bar toolbar in the stand-in's command bars: the add-in's calls, the user's actions, and
// what is left behind.
class CBarStage : protected IFaceSource {
 public:
  CBarStage();
  virtual ~CBarStage() = default;

  void Create(const ToolBarRecord& place = {});
  // Fills everything that start-up fills.
  void Fill();

  workbench::BarFace Bar() const;
  workbench::ControlFace Face(std::vector<std::wstring> path) const;

  TelephoneState state{};
  Configuration configuration;
  CResourceLoader resources;
  struct CLines final : ILogWriter {
    void WriteLine(std::string_view line) noexcept override { text += line; }
    std::string text;
  } lines;
  CDiagnosticLog log{lines};
  CNotedActions actions;
  CPictureLoader pictures{resources};

  workbench::CModel model;
  workbench::CModelPtr<workbench::CCommandBars> bars;
  CTestOwner owner;
  CCommandBarToolbar toolbar{*this, actions, pictures, owner, log};

 private:
  CControlFaces Faces() const override { return {state, configuration, resources}; }
  std::wstring DialText() const override { return {}; }
};

}  // namespace quor

#endif
