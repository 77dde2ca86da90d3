#ifndef QUOR_RESOURCES_SYSTEM_RESOLUTION_H
#define QUOR_RESOURCES_SYSTEM_RESOLUTION_H

namespace quor {

// The system's dots per inch, as the process sees them: 96 at 100 %, also if Windows does not
// report them. A monitor may have another resolution.
int SystemDotsPerInch() noexcept;

}  // namespace quor

#endif
