#ifndef QUOR_TESTS_GTEST_NOTIFICATION_H
#define QUOR_TESTS_GTEST_NOTIFICATION_H

// GoogleTest's own Notification needs std::mutex, which the win32 thread model lacks. GoogleTest
// waits for one only in tests of itself; it takes this one when GTEST_HAS_NOTIFICATION_ is set.
namespace testing::internal {

class Notification {
 public:
  void WaitForNotification() {}
};

}  // namespace testing::internal

#endif
