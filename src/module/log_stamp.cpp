#include "module/log_stamp.h"

#include "text/format.h"

namespace quor {

std::string LogStamp(const LogTime& time) {
  return Format("%04d/%02d/%02d %02d:%02d:%02d.%03d ", time.year, time.month, time.day, time.hour,
                time.minute, time.second, time.millisecond);
}

std::string LogFileName(const LogTime& time) {
  return Format("catlog%04d%02d%02d.txt", time.year, time.month, time.day);
}

}  // namespace quor
