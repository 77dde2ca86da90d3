#ifndef QUOR_TESTS_GTEST_NOTIFICATION_H
#define QUOR_TESTS_GTEST_NOTIFICATION_H

// Replaces GoogleTest's Notification, which needs std::mutex; the win32 thread model has none.
// GoogleTest uses it only in its own tests, and uses this one if GTEST_HAS_NOTIFICATION_ is set.
namespace testing::internal {

class Notification {
 public:
  void WaitForNotification() {}
};

}  // namespace testing::internal

#endif
