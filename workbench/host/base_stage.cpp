#include "workbench/host/base_stage.h"

#include <stdexcept>

#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"
#include "workbench/siusbxp/program_base.h"

namespace quor::workbench {

namespace {

constexpr wchar_t kLibraryName[] = L"\\SiUSBXp.dll";
constexpr wchar_t kOldLibraryFolder[] = L"\\old_library";

bool IsSimulated(const std::wstring& path) {
  // Does not run the library's code, which is unknown.
  const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  if (!library) return true;  // missing, or not a library: nothing to overwrite
  const bool simulated = GetProcAddress(library, MAKEINTRESOURCEA(kSimulatedLibraryOrdinal));
  FreeLibrary(library);
  return simulated;
}

}  // namespace

CBaseStage::CBaseStage(std::wstring addInFolder, std::wstring workbenchFolder)
    : m_addInFolder(std::move(addInFolder)), m_workbenchFolder(std::move(workbenchFolder)) {
  if (!IsSimulated(LibraryPath())) {
    throw std::runtime_error("there is another SiUSBXp.dll beside the add-in: " +
                             Utf8FromWide(LibraryPath()));
  }
  InstallLibrary(Library::Present);
}

CBaseStage::~CBaseStage() {
  ProgramBase().Observe(nullptr);
}

std::wstring CBaseStage::LibraryPath() const {
  return m_addInFolder + kLibraryName;
}

void CBaseStage::InstallLibrary(Library library) {
  m_base = nullptr;
  const std::wstring path = LibraryPath();
  if (library == Library::Missing) {
    DeleteFileW(path.c_str());
    return;
  }
  const std::wstring source =
      m_workbenchFolder + (library == Library::Old ? kOldLibraryFolder : L"") + kLibraryName;
  if (!CopyFileW(source.c_str(), path.c_str(), FALSE)) {
    throw std::runtime_error("the simulated library cannot be copied to " + Utf8FromWide(path));
  }
  m_base = &ProgramBase();
  m_base->Reset();
  m_base->Observe(this);
}

CBaseSimulator& CBaseStage::Base() const {
  if (!m_base) throw CScenarioError("there is no USB library");
  return *m_base;
}

void CBaseStage::Plug(const DeviceStrings& strings) {
  ProductStrings pointers = {};
  for (size_t i = 0; i < strings.size(); ++i) {
    pointers[i] = strings[i] ? strings[i]->c_str() : nullptr;
  }
  Base().Plug(pointers);
  m_believable.Reset();
}

void CBaseStage::Unplug(unsigned device) {
  if (device >= Base().DeviceCount()) throw CScenarioError("no such base is plugged in");
  Base().Unplug(device);
}

CBelievableBase& CBaseStage::Enliven() {
  m_alive = true;
  return m_believable;
}

void CBaseStage::Send(const Bytes& indication) {
  if (m_base) m_base->Queue(indication);
}

std::vector<Bytes> CBaseStage::Written() {
  std::vector<Bytes> frames;
  if (!m_base) return frames;
  for (size_t i = 0; i < m_base->WrittenCount(); ++i) {
    const std::span<const uint8_t> bytes = m_base->Written(i).bytes;
    frames.emplace_back(bytes.begin(), bytes.end());
  }
  return frames;
}

void CBaseStage::ForgetWritten() {
  if (m_base) m_base->ForgetWritten();
}

unsigned CBaseStage::Calls(UsbFunction function) {
  return m_base ? m_base->CallCount(function) : 0;
}

void CBaseStage::OnCall(const UsbCall& call) noexcept {
  m_callTexts.emplace_back(call.text);
  if (!m_alive || call.function != UsbFunction::Write || call.status != kSiSuccess) return;
  m_believable.OnRequest(m_base->Written(m_base->WrittenCount() - 1).bytes);
}

}  // namespace quor::workbench
