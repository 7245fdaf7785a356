// Where the sample documents shipped in examples/ live, for the demo, the tests
// and the benchmarks.
#pragma once

#include <string>

namespace OrvexExamples {

// Absolute path of a file below examples/, e.g. ExamplePath("data/sample.xml").
std::string ExamplePath(const std::string& relative);

}  // namespace OrvexExamples
