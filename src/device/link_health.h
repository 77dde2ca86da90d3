#ifndef QUOR_DEVICE_LINK_HEALTH_H
#define QUOR_DEVICE_LINK_HEALTH_H

#include <cstdint>

namespace quor {

// Counters since the link was created; they distinguish a loose cable from a dead base. They wrap
// around.
struct LinkHealth {
  uint32_t framesRead = 0;
  uint32_t badStartBytes = 0;
  uint32_t unknownTypes = 0;
  uint32_t badDelimiters = 0;  // the frame is still used
  uint32_t overruns = 0;
  uint32_t connections = 0;     // times a tick opened the base; all but the first are reconnections
  uint32_t longestPoll = 0;     // duration of the longest tick in milliseconds
  uint32_t connectedSince = 0;  // tick count in milliseconds; valid only while the base is open
};

}  // namespace quor

#endif
