#pragma once
// Test helpers: an application with one user workbook, and the error a call raises.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "frame/errors.h"
#include "workbook/in_memory_application.h"

namespace orv::test {

struct Raised {
  std::int32_t number = 0;  // 0 when the call returned normally
  std::string description;
};

template <class Call>
Raised raised(Call&& call) {
  try {
    call();
  } catch (const ComponentError& e) {
    return {e.number(), e.description()};
  }
  return {};
}

// "Book1.xlsx" with the sheets "Data" and "My data", "Data" active.
struct HostTest : ::testing::Test {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Data", "My data"});
  InMemoryWorksheet& data = book.Worksheets("Data");
};

}  // namespace orv::test
