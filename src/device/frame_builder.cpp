#include "device/frame_builder.h"

namespace quor {

std::vector<uint8_t> BuildRequest(RequestCode code, std::span<const uint8_t> payload) {
  std::vector<uint8_t> frame;
  frame.reserve(payload.size() + kRequestOverhead);
  frame.push_back(kRequestStart);
  frame.push_back(static_cast<uint8_t>(code));
  frame.insert(frame.end(), payload.begin(), payload.end());
  frame.push_back(kCarriageReturn);
  return frame;
}

std::vector<uint8_t> CallPayload(uint8_t lineType, std::string_view number) {
  const size_t counted = number.size() <= kMaxCountedNumberLength ? number.size() : 0;
  std::vector<uint8_t> payload;
  payload.reserve(number.size() + 3);
  payload.push_back(lineType);
  payload.push_back(static_cast<uint8_t>('0' + counted / 10));
  payload.push_back(static_cast<uint8_t>('0' + counted % 10));
  payload.insert(payload.end(), number.begin(), number.end());
  return payload;
}

}  // namespace quor
