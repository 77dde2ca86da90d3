#ifndef QUOR_TESTS_WORKBENCH_UI_TEST_PICTURE_H
#define QUOR_TESTS_WORKBENCH_UI_TEST_PICTURE_H

#include "workbench/office/value.h"

namespace quor::workbench {

// A 32-bit bitmap of two pixels side by side, 0xAARRGGBB as they stand in the bitmap.
CValue TestPicture(uint32_t left, uint32_t right);
// A picture that is no bitmap.
CValue EmptyPicture();

}  // namespace quor::workbench

#endif
