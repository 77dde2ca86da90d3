#include "device/base_port.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quor {
namespace {

// The search ends after this many unreadable devices in a row. No user has as many, and a library
// that reports 4,294,967,295 devices must not block Outlook's thread.
constexpr uint32_t kMostUnreadableDevices = 16;

constexpr uint32_t kBaudRate = 19200;
constexpr uint32_t kTimeoutMs = 3000;
constexpr uint16_t kEightDataBitsNoParityOneStopBit = 0x0800;

constexpr uint8_t kStatusInput = 0;
constexpr uint8_t kHeldInactive = 0;
constexpr uint8_t kHeldActive = 1;
constexpr FlowControl kFlowControl = {.cts = kStatusInput,
                                      .rts = kHeldActive,
                                      .dtr = kHeldInactive,
                                      .dsr = kStatusInput,
                                      .dcd = kStatusInput,
                                      .xonXoff = false};

struct ProductStringRead {
  ProductString option;
  const char* failureLine;
};

constexpr std::array<ProductStringRead, 5> kProductStringReads = {{
    {ProductString::SerialNumber, "** Error : [%d] SI_RETURN_SERIAL_NUMBER error. %d\n"},
    {ProductString::Description, "** Error : [%d] SI_RETURN_DESCRIPTION error. %d\n"},
    {ProductString::LinkName, "** Error : [%d] SI_RETURN_LINK_NAME error. %d\n"},
    {ProductString::VendorId, "** Error : [%d] SI_RETURN_VID error. %d\n"},
    {ProductString::ProductId, "** Error : [%d] SI_RETURN_PID error. %d\n"},
}};

}  // namespace

bool CBasePort::FindDevice(uint32_t& index) noexcept {
  index = 0;
  uint32_t count = 0;
  const int status = m_usb.GetNumDevices(count);
  if (status == kUsbDeviceNotFound) return false;
  if (status != kUsbSuccess) {
    m_log.Print("** Error : SI_GetNumDevices error. %d\n", status);
    return false;
  }
  const uint32_t end = std::min(count, kMostUnreadableDevices);
  for (; index < end; ++index) {
    if (ReadProductStrings(index)) return true;
  }
  return false;
}

// Reading the strings proves that the device answers; their values do not matter.
bool CBasePort::ReadProductStrings(uint32_t index) noexcept {
  for (const ProductStringRead& read : kProductStringReads) {
    std::array<char, kProductStringSize> text{};
    const int status = m_usb.GetProductString(index, text.data(), read.option);
    if (status != kUsbSuccess) {
      m_log.Print(read.failureLine, static_cast<int>(index + 1), status);
      return false;
    }
  }
  return true;
}

bool CBasePort::Open(uint32_t index) noexcept {
  int status = m_usb.Open(index, m_handle);
  if (status != kUsbSuccess) {
    m_handle = nullptr;
    m_log.Print("** Error : Failed open device. (%d)\n", status);
    return false;
  }
  status = m_usb.FlushBuffers(m_handle, true, true);
  if (status != kUsbSuccess) return LoseWith("** Error : Failed to purge device. (%d)\n", status);

  status = m_usb.SetBaudRate(m_handle, kBaudRate);
  if (status != kUsbSuccess) {
    m_log.Print("** Error : Failed to set baud rate %d for device. (%d)\n",
                static_cast<int>(kBaudRate), status);
  }
  status = m_usb.SetTimeouts(kTimeoutMs, kTimeoutMs);
  if (status != kUsbSuccess) return LoseWith("** Error : Failed to set timeouts. (%d)\n", status);

  status = m_usb.SetLineControl(m_handle, kEightDataBitsNoParityOneStopBit);
  if (status != kUsbSuccess) {
    return LoseWith("** Error : Failed to set line control. (%d)\n", status);
  }
  status = m_usb.SetFlowControl(m_handle, kFlowControl);
  if (status != kUsbSuccess) {
    return LoseWith("** Error : Failed to set flow control. (%d)\n", status);
  }
  return true;
}

bool CBasePort::Close() noexcept {
  const int status = m_usb.Close(std::exchange(m_handle, nullptr));
  if (status != kUsbSuccess) {
    m_log.Print("** Error : Error closing device. (%d)\n", status);
    return false;
  }
  m_log.Write("SI_Close() complete.\n");
  return true;
}

void CBasePort::Lose() noexcept {
  Close();
  m_connection.RaiseDisconnect();
}

bool CBasePort::LoseWith(const char* format, int status) noexcept {
  Lose();
  m_log.Print(format, status);
  return false;
}

bool CBasePort::CheckReceiveQueue(uint32_t& queued) noexcept {
  queued = 0;
  uint32_t queueStatus = kRxEmpty;
  if (m_usb.CheckRxQueue(m_handle, queued, queueStatus) != kUsbSuccess) {
    Lose();
    m_log.Write("** Error : SI_CheckRXQueue error.\n");
    return false;
  }
  switch (queueStatus) {
    case kRxReady:
      if (queued > 0) return true;
      m_log.Write("** Error : Queue data nothing.\n");
      return false;
    case kRxEmpty:
      return false;
    case kRxOverrun:
      ++m_health.overruns;
      m_log.Write("status not ready. SI_RX_OVERRUN\n");
      return false;
    default:
      m_log.Write("status not ready. Unknown status.\n");
      return false;
  }
}

std::optional<uint32_t> CBasePort::Read(std::span<uint8_t> buffer) noexcept {
  uint32_t read = 0;
  const int status =
      m_usb.Read(m_handle, buffer.data(), static_cast<uint32_t>(buffer.size()), read);
  if (status != kUsbSuccess) {
    LoseWith("Surprise Removal on Device Read.(%d)\n", status);
    return std::nullopt;
  }
  return read;
}

bool CBasePort::Write(std::span<const uint8_t> frame) noexcept {
  uint32_t written = 0;
  const int status =
      m_usb.Write(m_handle, frame.data(), static_cast<uint32_t>(frame.size()), written);
  if (status != kUsbSuccess) {
    m_log.Print("** Error : SI_Write error. (%d)\n", status);
    return false;
  }
  if (written != frame.size()) {
    // The first value is always 0: the format of these logs is fixed.
    m_log.Print("** Error : SI_Write size unmatch error. (from:%d, to:%d)\n", 0,
                static_cast<int>(written));
    return false;
  }
  m_log.Write("SI_Write complete.\n");
  return true;
}

bool CBasePort::Purge() noexcept {
  const int status = m_usb.FlushBuffers(m_handle, true, true);
  return status == kUsbSuccess || LoseWith("** Error : Failed to purge device.(%d)\n", status);
}

}  // namespace quor
