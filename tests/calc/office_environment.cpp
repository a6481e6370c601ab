#include "office_environment.h"

#include <chrono>

namespace orv::test {

std::unique_ptr<calc::OfficeProcess> OfficeEnvironment::office_;
std::unique_ptr<calc::OfficeConnection> OfficeEnvironment::connection_;
std::string OfficeEnvironment::failure_;

void OfficeEnvironment::SetUp() {
  try {
    office_ = std::make_unique<calc::OfficeProcess>();
    // A loaded test machine may start the office slowly.
    connection_ = std::make_unique<calc::OfficeConnection>(*office_, std::chrono::seconds(120));
  } catch (const calc::OfficeError& e) {
    failure_ = e.what();
  }
}

void OfficeEnvironment::TearDown() {
  connection_.reset();
  if (office_) office_->stop();
}

const calc::OfficeConnection& OfficeEnvironment::connection() {
  if (!connection_) {
    ADD_FAILURE() << "the office could not be started: " << failure_;
    throw std::runtime_error("no office");
  }
  return *connection_;
}

pid_t OfficeEnvironment::pid() { return office_ ? office_->pid() : -1; }

namespace {
// Registered before main runs; gtest owns the environment.
[[maybe_unused]] ::testing::Environment* const kOffice = ::testing::AddGlobalTestEnvironment(new OfficeEnvironment);
}  // namespace

}  // namespace orv::test
