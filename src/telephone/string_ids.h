#ifndef QUOR_TELEPHONE_STRING_IDS_H
#define QUOR_TELEPHONE_STRING_IDS_H

namespace quor {

// Numbers in the string tables of the three interface languages. The telephone only names texts;
// whoever shows one loads it.
inline constexpr int kNoText = 0;

inline constexpr int kTextCallFromLine1 = 1106;
inline constexpr int kTextDisconnectLine1 = 1108;
inline constexpr int kTextCancelLine1 = 1109;
inline constexpr int kTextCallFromLine2 = 1110;
inline constexpr int kTextDisconnectLine2 = 1112;
inline constexpr int kTextCancelLine2 = 1113;
inline constexpr int kTextAnswerLine1 = 1114;
inline constexpr int kTextAnswerLine2 = 1115;
inline constexpr int kTextCallFromCell = 1140;
inline constexpr int kTextDisconnectCell = 1142;
inline constexpr int kTextCancelCell = 1143;
inline constexpr int kTextAnswerCell = 1148;

inline constexpr int kTextDeviceNotConnected = 1301;
inline constexpr int kTextLineBusy = 1302;
inline constexpr int kTextInvalidCharacters = 1303;
inline constexpr int kTextInvalidNumber = 1304;
inline constexpr int kTextCellBusy = 1305;

inline constexpr int kTextLongDistance = 1400;
inline constexpr int kTextPrivateCaller = 1401;
inline constexpr int kTextOutOfArea = 1402;
inline constexpr int kTextPayPhone = 1403;
inline constexpr int kTextInternational = 1404;
inline constexpr int kTextUnavailableName = 1405;
inline constexpr int kTextUnavailableNumber = 1406;
inline constexpr int kTextUnavailableNameAndNumber = 1407;
inline constexpr int kTextCoinPhone = 1408;
inline constexpr int kTextUnknown = 1409;

}  // namespace quor

#endif
