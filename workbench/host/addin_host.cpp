#include "workbench/host/addin_host.h"

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <oleauto.h>
// clang-format on

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "workbench/host/process_use.h"
#include "workbench/host/ribbon_call.h"
#include "workbench/host/window_lists.h"
#include "workbench/scenario/results.h"
#include "workbench/scenario/scenario_error.h"
#include "workbench/siusbxp/program_base.h"

namespace quor::workbench {

namespace {

// The add-in's own timers: the deferred contact scan, due at once, and the poll of the base.
constexpr UINT_PTR kBuildTimer = 0x80000001u;
constexpr UINT_PTR kPollTimer = 0x80000002u;

uint32_t Result(HRESULT result) {
  return static_cast<uint32_t>(result);
}

}  // namespace

CAddInHost::CAddInHost(RegisteredAddIn addIn, CMessageLoop& loop, COutlook& outlook,
                       COfficeFace& face, COptionsWindow& options, CFigureStage& figures)
    : m_registered(std::move(addIn)),
      m_loop(loop),
      m_outlook(outlook),
      m_face(face),
      m_options(options),
      m_figures(figures),
      m_instance(outlook.AddAddIn(
          {m_registered.friendlyName, m_registered.progId, ClassIdText(m_registered.classId)},
          [this] { return m_connected; })) {
  m_loop.WatchTimer(kBuildTimer, [this](const std::function<void()>& handle) {
    m_figures.Measure(&Figures::scan, handle);
  });
}

CAddInHost::~CAddInHost() {
  m_loop.WatchTimer(0, nullptr);
  m_loop.WatchPosted(nullptr, nullptr);
  ReleaseObject();
}

IExtensibility& CAddInHost::Loaded() const {
  if (!m_addIn) throw CScenarioError("the add-in is not loaded");
  return *m_addIn;
}

HRESULT CAddInHost::LoadClass() {
  if (m_factory) return S_OK;
  const HRESULT result = CoGetClassObject(m_registered.classId, CLSCTX_INPROC_SERVER, nullptr,
                                          IID_IClassFactory, reinterpret_cast<void**>(&m_factory));
  if (FAILED(result)) return result;
  m_module = GetModuleHandleW(m_registered.modulePath.c_str());
  if (m_keepModule) LoadLibraryW(m_registered.modulePath.c_str());
  CModuleMeter::Watch(m_module);
  m_loop.WatchPosted(m_module, [this](const std::function<void()>& handle) {
    m_figures.Measure(&Figures::messages, handle);
  });
  return result;
}

uint32_t CAddInHost::Create() {
  if (m_addIn) throw CScenarioError("the add-in is loaded already");
  HRESULT result = LoadClass();
  if (FAILED(result)) return Result(result);
  if (m_hasten) m_importFaults.HastenTimers(m_module);
  if (m_catchOpening) m_importFaults.CatchOpening(m_module);
  result = m_factory->CreateInstance(nullptr, kExtensibilityId, reinterpret_cast<void**>(&m_addIn));
  m_factory->Release();
  m_factory = nullptr;
  if (SUCCEEDED(result)) return Result(result);
  m_addIn = nullptr;
  Unload();
  return Result(result);
}

uint32_t CAddInHost::Connect(int mode) {
  IExtensibility& addIn = Loaded();
  SAFEARRAY* custom = SafeArrayCreateVector(VT_VARIANT, 1, 0);
  HRESULT result = E_FAIL;
  m_figures.Time(&Figures::connection, [&] {
    result = addIn.OnConnection(m_outlook.Application(), mode, m_instance.get(), &custom);
  });
  SafeArrayDestroy(custom);
  // Outlook may have released the object inside the call.
  m_connected = SUCCEEDED(result) && m_addIn != nullptr;
  if (result == S_OK) m_loop.ExpectTimerFirst(kBuildTimer, kPollTimer);
  return Result(result);
}

uint32_t CAddInHost::StartupComplete() {
  return Result(Loaded().OnStartupComplete(nullptr));
}

uint32_t CAddInHost::AddInsUpdate() {
  return Result(Loaded().OnAddInsUpdate(nullptr));
}

uint32_t CAddInHost::BeginShutdown() {
  IExtensibility& addIn = Loaded();
  HRESULT result = E_FAIL;
  m_figures.Time(&Figures::shutdown, [&] { result = addIn.OnBeginShutdown(nullptr); });
  return Result(result);
}

uint32_t CAddInHost::Disconnect(int mode) {
  IExtensibility& addIn = Loaded();
  HRESULT result = E_FAIL;
  m_figures.Time(&Figures::shutdown, [&] { result = addIn.OnDisconnection(mode, nullptr); });
  m_connected = false;
  return Result(result);
}

uint32_t CAddInHost::CustomUi(const std::string& ribbonId, std::optional<std::string>& document) {
  if (!m_ribbonSource) {
    const HRESULT found =
        Loaded().QueryInterface(kRibbonExtensibilityId, reinterpret_cast<void**>(&m_ribbonSource));
    if (FAILED(found)) return Result(found);
  }
  const std::wstring wideId = WideFromUtf8(ribbonId);
  const BSTR id = SysAllocStringLen(wideId.data(), static_cast<UINT>(wideId.size()));
  BSTR text = nullptr;
  const HRESULT result = m_ribbonSource->GetCustomUI(id, &text);
  SysFreeString(id);
  if (SUCCEEDED(result) && text) {
    document = Utf8FromWide(WideFromBstr(text));
    m_face.LoadRibbon(ribbonId, *document, m_addIn);
  }
  SysFreeString(text);
  return Result(result);
}

uint32_t CAddInHost::CallRibbon(const RibbonCall& call, std::string& answer) {
  return Result(CallRibbonCallback(m_outlook.Model(), Loaded(), call, answer));
}

// Clear each reference before releasing it: the last release ends the add-in, which calls Outlook,
// where a sweep may use the add-in again.
void CAddInHost::ReleaseObject() {
  IUnknown* const references[] = {std::exchange(m_ribbonSource, nullptr),
                                  std::exchange(m_factory, nullptr),
                                  std::exchange(m_addIn, nullptr)};
  m_connected = false;
  m_options.Close();
  m_face.UnloadRibbons();
  CImportFaults::Forget();
  for (IUnknown* const reference : references) {
    if (reference) reference->Release();
  }
}

HRESULT CAddInHost::CanUnload() const {
  const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(m_module, "DllCanUnloadNow")));
  return canUnload ? canUnload() : E_NOTIMPL;
}

void CAddInHost::ReleaseInside() {
  ReleaseObject();
  if (m_module && CanUnload() == S_OK) {
    throw CExpectationFailure("DllCanUnloadNow returns S_OK while the add-in's own code runs");
  }
}

void CAddInHost::EndProcess(bool uninitialized) {
  CImportFaults::Forget();
  CModuleMeter::Forget();
  if (uninitialized) OleUninitialize();
  ExitProcess(0);
}

void CAddInHost::Unload() {
  if (!m_module) throw CScenarioError("the add-in is not loaded");
  ReleaseObject();
  const bool early = m_outlook.Model().HoldsOldSinks() && CanUnload() == S_OK;
  m_loop.Pump();
  if (early) throw CExpectationFailure("DllCanUnloadNow returns S_OK while a sink is held");
  CModuleMeter::Forget();
  CheckModuleGone();
}

void CAddInHost::CheckModuleGone() {
  const std::vector<HWND> windows = Windows();
  const HRESULT answer = CanUnload();
  m_module = nullptr;
  if (answer != S_OK) {
    throw CExpectationFailure("its DLL still has objects: DllCanUnloadNow returns " +
                              ResultName(Result(answer)));
  }
  if (!windows.empty()) {
    throw CExpectationFailure(std::to_string(windows.size()) + " windows of the add-in remain");
  }
  CoFreeUnusedLibrariesEx(0, 0);
  if (!m_keepModule && GetModuleHandleW(m_registered.modulePath.c_str())) {
    throw CExpectationFailure("its DLL stays loaded");
  }
  // After a failed SI_Close the library's thread may still run, so the DLL must stay loaded.
  if (ProgramBase().FailedCloses() == 0 && GetModuleHandleW(L"SiUSBXp.dll")) {
    throw CExpectationFailure("SiUSBXp.dll stays loaded");
  }
}

// Does what the timer's message would, at a time that the scenario chooses.
void CAddInHost::Poll() {
  HWND hidden = nullptr;
  std::set<HWND> shown;
  for (const HWND window : Windows()) {
    if (IsWindowVisible(window)) shown.insert(window);
    wchar_t name[16] = {};
    GetWindowTextW(window, name, 16);
    if (name == std::wstring_view(L"CAddin")) hidden = window;
  }
  if (!hidden) throw CScenarioError("the add-in has no window for its timers");
  const auto appears = [&] {
    const std::vector<HWND> windows = Windows();
    return std::ranges::any_of(windows, [&shown](HWND window) {
      return IsWindowVisible(window) && !shown.contains(window);
    });
  };
  m_figures.TimeCaller([&] { SendMessageW(hidden, WM_TIMER, kPollTimer, 0); },
                       [this] { return m_loop.PumpOne(); }, appears);
}

ResourceUse CAddInHost::Use() {
  ResourceUse use = MeasureProcess();
  use.blocks = CModuleMeter::Blocks();
  return use;
}

void CAddInHost::FailSystemFunction(const std::string& function, const FailingCalls& calls) {
  if (!m_module && FAILED(LoadClass())) throw CScenarioError("the add-in cannot be loaded");
  m_importFaults.Fail(m_module, function, calls);
}

void CAddInHost::ShowScale(int scale) {
  const int dotsPerInch = scale == 100 ? 0 : USER_DEFAULT_SCREEN_DPI * scale / 100;
  if (m_module) m_importFaults.ShowDotsPerInch(m_module, dotsPerInch);
}

std::vector<HWND> CAddInHost::Windows() const {
  if (!m_module) return {};
  std::vector<HWND> windows = ThreadWindows();
  std::erase_if(windows, [this](HWND window) { return CreatorOf(window) != m_module; });
  return windows;
}

}  // namespace quor::workbench
