#include "tests/device/device_fixture.h"

namespace quor {

const std::string kStartupSent =
    "< Start up request >\n"
    "[S] (3) 2B 31 0D\n"
    "SI_Write complete.\n"
    "Start up request complete. ( request size: 3 )\n";
const std::string kConnected = "< USB device connect >\nUSB device connect post complete.\n";
const std::string kDisconnected =
    "< USB device disconnect >\nUSB device disconnect post complete.\n";
const std::string kLost = "SI_Close() complete.\n" + kDisconnected;
const std::string kRecovered = kStartupSent + kConnected + "Device setup complete.\n" + kConnected +
                               "** Recovery : USB device recovery.\n";

bool CRecordedQueue::PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept {
  if (!accepts) return false;
  if (!events.empty()) events += ' ';
  events += std::to_string(static_cast<uint32_t>(event));
  if (lineType != kNoLine) events += ":" + std::to_string(lineType);
  return true;
}

std::vector<uint8_t> Bytes(std::string_view hex) {
  std::vector<uint8_t> bytes;
  for (size_t at = 0; at < hex.size(); at += 3) {
    bytes.push_back(static_cast<uint8_t>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16)));
  }
  return bytes;
}

std::string Hex(std::span<const uint8_t> bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const unsigned byte : bytes) {
    if (!text.empty()) text += ' ';
    text += {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
  }
  return text;
}

void CDeviceLinkTest::Open() {
  m_base.Plug();
  Tick();
  Log();
  Events();
  Wire();
}

bool CDeviceLinkTest::Receive(std::string_view hex) {
  if (!m_link.IsOpen()) Open();
  Feed(hex);
  return Tick();
}

std::string CDeviceLinkTest::Wire() {
  std::string frames;
  for (; m_wireSeen < m_base.WrittenCount(); ++m_wireSeen) {
    if (!frames.empty()) frames += " | ";
    frames += Hex(m_base.Written(m_wireSeen).bytes);
  }
  return frames;
}

}  // namespace quor
