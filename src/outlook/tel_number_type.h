#ifndef QUOR_OUTLOOK_TEL_NUMBER_TYPE_H
#define QUOR_OUTLOOK_TEL_NUMBER_TYPE_H

namespace quor {

// Types of a contact's indexed numbers. The numbering is fixed: the log prints it, and lists of
// numbers are in this order.
//
//   1 Assistant   4 Callback      7 Home    10 Mobile
//   2 Business    5 Car           8 Home2   11 Other
//   3 Business2   6 Company main  9 ISDN    12 Primary
inline constexpr int kFirstTelNumberType = 1;
inline constexpr int kLastTelNumberType = 12;

constexpr bool IsTelNumberType(int telNumberType) noexcept {
  return telNumberType >= kFirstTelNumberType && telNumberType <= kLastTelNumberType;
}

}  // namespace quor

#endif
