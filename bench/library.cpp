#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "library/c/tallyfin99.h"

/// tallyfin99-library-bench PAYCHECKS: works that many through the C interface, with the columns and the values of
/// bench/batch, and prints the sum of the checks. The difference of two runs is the cost of the paychecks.

namespace {

constexpr const char* states[] = {"New York", "Pennsylvania", "California", "Maryland", "Illinois", "No State"};

struct Columns {
  int income = tallyfin99_column("income");
  int frequency = tallyfin99_column("frequency");
  int status = tallyfin99_column("status");
  int exemptions = tallyfin99_column("exemptions");
  int state = tallyfin99_column("state");
  int rate401k = tallyfin99_column("rate_401k");
};

struct Values {
  std::string income;
  std::string exemptions;
  std::string state;
};

std::vector<Values> someValues() {
  std::vector<Values> values;
  for (int cents = 20011; cents < 420011; cents += 97) {
    char income[16];
    std::snprintf(income, sizeof income, "%d.%02d", cents / 100, cents % 100);
    values.push_back({income, std::to_string(cents % 16), states[cents % 6]});
  }
  return values;
}

void set(tallyfin99_paycheck* paycheck, int column, const std::string& text) {
  tallyfin99_set(paycheck, column, text.data(), text.size());
}

}  // namespace

int main(int argc, char** argv) {
  long paychecks = 1'000'000;
  if (argc > 1) std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), paychecks);
  const Columns columns;
  const std::vector<Values> values = someValues();
  tallyfin99_paycheck* paycheck = tallyfin99_new();
  long long checks = 0;
  std::size_t next = 0;
  for (long i = 0; i < paychecks; ++i) {
    const Values& now = values[next];
    if (++next == values.size()) next = 0;
    set(paycheck, columns.income, now.income);
    tallyfin99_set(paycheck, columns.frequency, "Weekly", 6);
    tallyfin99_set(paycheck, columns.status, "Single", 6);
    set(paycheck, columns.exemptions, now.exemptions);
    set(paycheck, columns.state, now.state);
    tallyfin99_set(paycheck, columns.rate401k, "6", 1);
    tallyfin99_work(paycheck);
    for (int result = 0; result < 12; ++result) checks += tallyfin99_result(paycheck, result);
  }
  std::printf("%lld\n", checks);
  tallyfin99_free(paycheck);
}
