#pragma once
// One headless office per test program: started before the first test, stopped by its process
// id after the last. A program that cannot start it fails every test that needs it, naming the
// reason; nothing is skipped.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "calc/office_connection.h"

namespace orv::test {

class OfficeEnvironment : public ::testing::Environment {
 public:
  void SetUp() override;
  void TearDown() override;

  // The running office's connection; fails the calling test when there is none.
  static const calc::OfficeConnection& connection();
  static pid_t pid();

 private:
  static std::unique_ptr<calc::OfficeProcess> office_;
  static std::unique_ptr<calc::OfficeConnection> connection_;
  static std::string failure_;
};

}  // namespace orv::test
