// Runs of the component on a real database, recorded.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/databases.h"
#include "recording/replay.h"
#include "sample_engine.h"
#include "sample_files.h"

namespace td {

using Lines = std::vector<std::string>;

// The engines that all tests of a program share, with their connections.
[[nodiscard]] Databases& Engines();

[[nodiscard]] std::vector<SamplePrint> Prints();
[[nodiscard]] SamplePrint PrintNamed(const std::string& name);

// The rows that a sample prints.
[[nodiscard]] RecordsetRef RowsOf(const SamplePrint& print, SampleEngine engine);

// A silent print of the sample with these rows.
[[nodiscard]] recording::Scenario PrintOf(const SamplePrint& print, const RecordsetRef& rows);

// The trace of a scenario on an engine, through `database`, which leads to Engines().
[[nodiscard]] Lines TraceOf(const recording::Scenario& scenario, SampleEngine engine,
                            Database& database = Engines());

// The texts of all message boxes.
[[nodiscard]] Lines MessagesIn(const Lines& trace);

// Fails the test with the first line in which a trace differs from the expected one.
void ExpectSame(const Lines& trace, const Lines& expected);

}  // namespace td
