#ifndef QUOR_RESOURCES_RESOURCE_IDS_H
#define QUOR_RESOURCES_RESOURCE_IDS_H

/* Every number under which the module keeps a resource. Macros, because the resource compiler reads
   this file too. String tables and dialogs exist in English (1033), French (1036) and Spanish
   (3082); everything else is language-neutral. */

/* Ribbon documents, type "XML". */
#define IDX_RIBBON_CONTACT 102
#define IDX_RIBBON_EXPLORER 103

/* Pictures, type "ICON_PNG", 16 x 16 pixels with alpha. The same picture at 24, 32 and 48 pixels
   stands IDP_SIZE_STEP, twice and three times that many numbers further on. */
#define IDP_LINE1 540
#define IDP_LINE2 541
#define IDP_CELL 542
#define IDP_CALLER_LIST 543
#define IDP_SPEED_DIAL 544
#define IDP_OPTIONS 545
#define IDP_CONTACT 546
#define IDP_DIAL 547
#define IDP_CALL 548
#define IDP_ANSWER 549
#define IDP_HANG_UP 550
#define IDP_SIZE_STEP 100

/* The options page in a form designer; registered as its ToolboxBitmap32. */
#define IDB_TOOLBOX 102

/* Masks of the command bar's pictures, type BITMAP, 16 x 16: white is transparent. */
#define IDB_LINE1_MASK 402
#define IDB_LINE2_MASK 550
#define IDB_OPTIONS_MASK 554

/* Dialogs. */
#define IDD_MESSAGE 201
#define IDD_CALLER 202
#define IDD_LOADING 203
#define IDD_SPEED_DIAL_REGIST 204
#define IDD_SPEED_DIAL_ERASE 205
#define IDD_OPTIONS_PANEL 206 /* a child window: Outlook's options page, or inside IDD_OPTIONS */
#define IDD_OPTIONS 207
#define IDD_ABOUT 208

/* Their controls. Buttons that accept or close are IDOK (1) and IDCANCEL (2). */
#define IDC_MESSAGE_TEXT 1001
#define IDC_CALLER_LINE 1011
#define IDC_CALLER_NAME 1012
#define IDC_CALLER_NUMBER 1013
#define IDC_SPEED_DIAL_NAME 1021
#define IDC_SPEED_DIAL_NUMBER 1022
#define IDC_ERASE_ENTRY 1031
#define IDC_OPTIONS_LANGUAGE 1041
#define IDC_OPTIONS_POP_UP 1042 /* 1042 to 1047: Line1, Line2, Cell1 to Cell4 */
#define IDC_OPTIONS_ABOUT 1048
#define IDC_OPTIONS_APPLY 1049
#define IDC_OPTIONS_JOURNAL 1050
#define IDC_ABOUT_VERSION 1061
#define IDC_ABOUT_BUILD 1062
#define IDC_ABOUT_ARCHITECTURE 1063
#define IDC_ABOUT_BASE 1064
#define IDC_ABOUT_CONFIGURATION 1065
#define IDC_ABOUT_LOG 1066
#define IDC_ABOUT_WRITE_LOG 1067
#define IDC_ABOUT_OPEN_FOLDER 1068
#define IDC_ABOUT_LINK 1069
#define IDC_ABOUT_CONTACTS 1070
#define IDC_ABOUT_CONFIGURATION_STATE 1071

/* Strings. The tags identify controls and read the same in every language. */
#define IDS_NONE 0 /* no string */
#define IDS_PRODUCT_NAME 1054

#define IDS_DIAL_NUMBER 1100
#define IDS_DIAL_TAG 1101
#define IDS_CALL_FROM_LINE1 1106
#define IDS_LINE1_TAG 1107
#define IDS_DISCONNECT_LINE1 1108
#define IDS_CANCEL_LINE1 1109
#define IDS_CALL_FROM_LINE2 1110
#define IDS_LINE2_TAG 1111
#define IDS_DISCONNECT_LINE2 1112
#define IDS_CANCEL_LINE2 1113
#define IDS_ANSWER_LINE1 1114
#define IDS_ANSWER_LINE2 1115
#define IDS_CALLER_LIST 1120
#define IDS_CALLER_LIST_TAG 1121
#define IDS_OPTIONS 1130
#define IDS_OPTIONS_TAG 1131
#define IDS_CALL_FROM_CELL 1140
#define IDS_CELL_TAG 1141
#define IDS_DISCONNECT_CELL 1142
#define IDS_CANCEL_CELL 1143
#define IDS_MENU_CELL1 1144 /* 1144 to 1147: the items of the call-from-cell menu */
#define IDS_ANSWER_CELL 1148
#define IDS_SPEED_DIAL 1160
#define IDS_SPEED_DIAL_TAG 1161
#define IDS_NO_ENTRY 1162
#define IDS_SPEED_DIAL_CALL 1170
#define IDS_SPEED_DIAL_ADD 1171
#define IDS_SPEED_DIAL_EDIT 1172
#define IDS_SPEED_DIAL_ERASE 1173

#define IDS_DEVICE_NOT_CONNECTED 1301
#define IDS_LINE_BUSY 1302
#define IDS_INVALID_CHARACTERS 1303
#define IDS_INVALID_NUMBER 1304
#define IDS_CELL_BUSY 1305

/* Why a caller's name or number is missing. Written as labels: "&&" shows one "&". */
#define IDS_LONG_DISTANCE 1400
#define IDS_PRIVATE_CALLER 1401
#define IDS_OUT_OF_AREA 1402
#define IDS_PAY_PHONE 1403
#define IDS_INTERNATIONAL 1404
#define IDS_UNAVAILABLE_NAME 1405
#define IDS_UNAVAILABLE_NUMBER 1406
#define IDS_UNAVAILABLE_NAME_AND_NUMBER 1407
#define IDS_COIN_PHONE 1408
#define IDS_UNKNOWN 1409

#define IDS_SLOT_NAME 1500 /* 1500 to 1505: Line1, Line2, Cell1 to Cell4 */
#define IDS_INCOMING_CALL 1510
/* Spoken when the caller window opens. %1: the caller's name, or else the number */
#define IDS_INCOMING_CALL_FROM 1511
/* Why a name is shown. %1: matched digits, %2: digits of the caller's number, %3: the kind of the
   contact's number, %4: the name */
#define IDS_NAME_REASON 1512
#define IDS_NO_MORE_CONTACTS 1513
#define IDS_ONE_MORE_CONTACT 1514
#define IDS_MORE_CONTACTS 1515 /* %1: contacts */

#define IDS_POP_UP_MODE 1520   /* 1520 to 1522: "Contact list", "Simple window", "Off" */
#define IDS_LANGUAGE_NAME 1530 /* 1530 to 1532: each language by its own name */
#define IDS_BASE_CONNECTED 1540
#define IDS_BASE_NOT_CONNECTED 1541
#define IDS_32_BIT 1542
#define IDS_64_BIT 1543
#define IDS_LINK_SINCE 1544  /* %1: date and time */
#define IDS_LINK_HEALTH 1545 /* %1 to %7: counts and milliseconds */
#define IDS_BASE_NO_LIBRARY 1546
#define IDS_BASE_OTHER_BITNESS 1547 /* %1: the bitness it should have */
#define IDS_BASE_NO_ORDINAL 1548    /* %1: the ordinal */
#define IDS_CONTACTS_READING 1549
#define IDS_CONTACTS_READ 1550  /* %1: contacts */
#define IDS_CONTACTS_LIMIT 1551 /* %1: contacts, %2: items of the folders */
#define IDS_CONFIGURATION_UNREADABLE 1552
#define IDS_CONFIGURATION_UNSAVED 1553
#define IDS_CONFIGURATION_CODE_PAGE 1554
#define IDS_CONFIGURATION_NO_FOLDER 1555

/* A call in Outlook's journal: what stands before the caller in its subject, and the labels of its
   text. */
#define IDS_JOURNAL_MISSED 1560
#define IDS_JOURNAL_CALL_FROM 1561
#define IDS_JOURNAL_CALL_TO 1562
#define IDS_JOURNAL_LINE 1563
#define IDS_JOURNAL_DIRECTION 1564
#define IDS_JOURNAL_INCOMING 1565
#define IDS_JOURNAL_OUTGOING 1566
#define IDS_JOURNAL_NAME 1567
#define IDS_JOURNAL_NUMBER 1568
#define IDS_JOURNAL_LENGTH 1569

/* 1601 to 1612: the kinds of a contact's numbers, in the order of telNumberType 1 to 12. */
#define IDS_NUMBER_KIND 1600

#endif
