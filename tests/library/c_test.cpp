#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "library/c/tallyfin99.h"

/// The C interface of libtallyfin99.

namespace {

/// The number of allocations of this thread that still succeed.
thread_local long allocationsLeft = std::numeric_limits<long>::max();

}  // namespace

void* operator new(std::size_t size) {
  if (allocationsLeft-- <= 0) throw std::bad_alloc();
  void* const place = std::malloc(size);
  if (place == nullptr) throw std::bad_alloc();
  return place;
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocationsLeft-- > 0 ? std::malloc(size) : nullptr;
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t /*size*/) noexcept { std::free(place); }

namespace {

struct Free {
  void operator()(tallyfin99_paycheck* paycheck) const { tallyfin99_free(paycheck); }
};
using Owned = std::unique_ptr<tallyfin99_paycheck, Free>;

bool set(const Owned& paycheck, const char* column, const char* text) {
  return tallyfin99_set(paycheck.get(), tallyfin99_column(column), text, std::strlen(text));
}

TEST(CInterface, NamesColumnsAndResults) {
  EXPECT_EQ(tallyfin99_columns(), 20);
  EXPECT_STREQ(tallyfin99_column_name(0), "income");
  EXPECT_STREQ(tallyfin99_column_name(19), "net");
  EXPECT_EQ(tallyfin99_column("Income"), 0);
  EXPECT_EQ(tallyfin99_column("net"), 19);
  EXPECT_EQ(tallyfin99_column("wages"), -1);
  EXPECT_EQ(tallyfin99_results(), 12);
  EXPECT_STREQ(tallyfin99_result_name(0), "gross_pay");
  EXPECT_STREQ(tallyfin99_result_name(11), "check_amount");
  EXPECT_STREQ(tallyfin99_version(), TALLYFIN_VERSION);
}

TEST(CInterface, WorksAPaycheck) {
  const Owned paycheck(tallyfin99_new());
  EXPECT_STREQ(tallyfin99_problem(paycheck.get()), "");
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 0), 0);
  EXPECT_TRUE(set(paycheck, "income", "1000"));
  EXPECT_TRUE(set(paycheck, "frequency", "Weekly"));
  EXPECT_TRUE(tallyfin99_set_integer(paycheck.get(), tallyfin99_column("exemptions"), 2));
  EXPECT_TRUE(tallyfin99_set_real(paycheck.get(), tallyfin99_column("rate_401k"), 6));
  ASSERT_TRUE(tallyfin99_work(paycheck.get()));
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 4), 106'5400);
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 11), 756'9600);
  EXPECT_STREQ(tallyfin99_problem(paycheck.get()), "");
  tallyfin99_set_real(paycheck.get(), tallyfin99_column("income"), std::nan(""));
  tallyfin99_set(paycheck.get(), tallyfin99_column("exemptions"), nullptr, 0);
  ASSERT_TRUE(tallyfin99_work(paycheck.get()));
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 11), 0);
  EXPECT_TRUE(set(paycheck, "state", "Atlantis"));
  EXPECT_FALSE(tallyfin99_work(paycheck.get()));
  EXPECT_STREQ(tallyfin99_problem(paycheck.get()), "state: no such entry");
  tallyfin99_clear(paycheck.get());
  EXPECT_TRUE(tallyfin99_work(paycheck.get()));
}

TEST(CInterface, TakesATextWithoutAZeroBehindIt) {
  const Owned paycheck(tallyfin99_new());
  EXPECT_TRUE(tallyfin99_set(paycheck.get(), tallyfin99_column("income"), "12345", 3));
  ASSERT_TRUE(tallyfin99_work(paycheck.get()));
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 0), 123'0000);
}

TEST(CInterface, ExplainsEachResult) {
  const Owned paycheck(tallyfin99_new());
  set(paycheck, "income", "1000");
  set(paycheck, "frequency", "Weekly");
  const std::string text = tallyfin99_explanation(paycheck.get());
  EXPECT_TRUE(text.starts_with("{\"Gross Pay\":[{")) << text;
  EXPECT_NE(text.find("],\"Check Amt\":[{"), std::string::npos) << text;
  EXPECT_TRUE(text.ends_with("]}")) << text;
  set(paycheck, "income", "\xFF");  // no UTF-8
  EXPECT_NE(std::string(tallyfin99_explanation(paycheck.get())), "");
  set(paycheck, "state", "Atlantis");
  EXPECT_STREQ(tallyfin99_explanation(paycheck.get()), "null");
}

TEST(CInterface, ChangesNothingForWhatDoesNotExist) {
  const Owned paycheck(tallyfin99_new());
  set(paycheck, "income", "100");
  for (const int number : {-1, 20, 1 << 30}) {
    EXPECT_EQ(tallyfin99_column_name(number), nullptr);
    EXPECT_EQ(tallyfin99_result_name(number), nullptr);
    EXPECT_FALSE(tallyfin99_set(paycheck.get(), number, "5", 1));
    EXPECT_FALSE(tallyfin99_set_integer(paycheck.get(), number, 5));
    EXPECT_FALSE(tallyfin99_set_real(paycheck.get(), number, 5));
    EXPECT_EQ(tallyfin99_result(paycheck.get(), number), 0);
  }
  EXPECT_FALSE(tallyfin99_set(paycheck.get(), 0, nullptr, 3));
  ASSERT_TRUE(tallyfin99_work(paycheck.get()));
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 0), 100'0000);
  EXPECT_EQ(tallyfin99_column(nullptr), -1);
}

TEST(CInterface, AllowsANullPaycheck) {
  EXPECT_FALSE(tallyfin99_set(nullptr, 0, "5", 1));
  EXPECT_FALSE(tallyfin99_set_integer(nullptr, 0, 5));
  EXPECT_FALSE(tallyfin99_set_real(nullptr, 0, 5));
  EXPECT_FALSE(tallyfin99_work(nullptr));
  EXPECT_EQ(tallyfin99_result(nullptr, 0), 0);
  EXPECT_EQ(tallyfin99_problem(nullptr), nullptr);
  EXPECT_EQ(tallyfin99_explanation(nullptr), nullptr);
  tallyfin99_clear(nullptr);
  tallyfin99_free(nullptr);
}

TEST(CInterface, ReportsATextBeyondAllMemory) {
  const Owned paycheck(tallyfin99_new());
  set(paycheck, "income", "100");
  EXPECT_FALSE(tallyfin99_set(paycheck.get(), 0, "", ~std::size_t{0} / 2));
  EXPECT_TRUE(tallyfin99_work(paycheck.get()));
}

/// Calls act() with that number of allocations.
template <class Act>
auto withAllocations(long count, Act act) {
  allocationsLeft = count;
  const auto result = act();
  allocationsLeft = std::numeric_limits<long>::max();
  return result;
}

TEST(CInterface, ReportsALackOfMemory) {
  EXPECT_EQ(withAllocations(0, tallyfin99_new), nullptr);
  const Owned paycheck(tallyfin99_new());
  const std::string longText = "1000" + std::string(40, ' ');
  EXPECT_FALSE(withAllocations(0, [&] { return set(paycheck, "income", longText.c_str()); }));
  EXPECT_TRUE(set(paycheck, "income", longText.c_str()));
  EXPECT_FALSE(withAllocations(0, [&] { return tallyfin99_work(paycheck.get()); }));
  EXPECT_STREQ(tallyfin99_problem(paycheck.get()), "there is not enough memory");
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 0), 0);
  EXPECT_TRUE(tallyfin99_work(paycheck.get()));
  EXPECT_EQ(tallyfin99_result(paycheck.get(), 0), 1000'0000);
}

TEST(CInterface, ExplainsOrReportsALackOfMemory) {
  const Owned paycheck(tallyfin99_new());
  set(paycheck, "income", "1000");
  set(paycheck, "frequency", "Weekly");
  const std::string whole = tallyfin99_explanation(paycheck.get());
  long count = 0;
  while (withAllocations(count, [&] { return tallyfin99_explanation(paycheck.get()); }) == nullptr) count += 7;
  EXPECT_GT(count, 0);
  EXPECT_EQ(whole, tallyfin99_explanation(paycheck.get()));
}

}  // namespace
