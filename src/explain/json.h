#pragma once

#include <string>
#include <vector>

#include "explain/explain.h"
#include "explain/form.h"

namespace tallyfin {

/// Explanations as a JSON object of the titles of the results, each with a list of its lines; "null" where there are
/// none.
std::string jsonOf(const std::vector<Explanation>& explanations);

/// The worksheets set as forms: {"heading":[["State","Pennsylvania"],...],"forms":[{"title":"Federal Tax",
/// "figure":"$172.49","lines":[{"line":5,"parts":[["Line 3",3],[" less "],["line 4",4]],"figure":"$887.12","spoken":
/// "Line 5. ...","table":{"name":"...","of":"Line 4","used":1,"rows":[["not over $51.00","$0.00"],...]}}]}]}. A part
/// has the numbers of the lines that it refers to behind its text; "line" is missing for a remark, "table" where none
/// was used.
std::string formsAsJson(const Trace& trace);

/// The test of a row in words: "at most".
const char* nameOf(Test test);

}  // namespace tallyfin
