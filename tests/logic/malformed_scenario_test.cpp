// Whatever stands in a scenario, it is either replayed or refused with a reason.
#include <gtest/gtest.h>

#include "recording/replay.h"
#include "scenario.h"

namespace td {
namespace {

using recording::ScenarioError;

std::string RefusalOf(const Json& scenario) {
  try {
    (void)recording::Replay(scenario);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "";
}

std::string RefusalOf(const std::string& text) {
  try {
    return RefusalOf(recording::ParseScenario(text));
  } catch (const ScenarioError& error) {
    return error.what();
  }
}

// Uses every key of a scenario.
Json FullScenario() {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}}).Item({{"FTypeID", 2}, {"FPicturePath", "a.bmp"}});
  scenario.GoodsPicture(1, {{"base64", "AQIDBA=="}});
  scenario.Set("machine", "10.0.0.1").Set("printers", Json::array({"P1", "P2"}));
  scenario.Set("defaultPrinter", "P2").Set("surface", {{"Zoom", 50}, {"FontBold", true}});
  scenario.Set("pictures", Json::array({"a.bmp"})).Set("pictureFolder", false);
  scenario.Set("memo", {{"text", "memo"}, {"rtf", "{rtf}"}});
  scenario.BlankRows(1).Print({{"data", "same"}});
  scenario.Preview({"nextpage",
                    {{"activate", true}},
                    {{"put", {{"PaperWidth", 5}, {"Device", "P1"}}}},
                    {{"key", "adjuct"}, {"user", Json::array({{{"press", "cmdOk"}}})}},
                    {{"key", "pageset"}, {"confirm", true}, {"put", {{"PaperSize", 9}}}}});
  scenario.OpenTDSet({{{"set", "txtLeft"}, {"value", "1"}},
                      {{"check", "chkHeaderPerPage"}, {"value", 1}},
                      {{"option", "optOrientation"}, {"index", 1}},
                      {{"select", "cmbTdBillName"}, {"index", 0}},
                      {{"select", "cmbTdBillName"}, {"text", "x"}}});
  scenario.Fault({{"on", "TextBox"},
                  {"nth", 2},
                  {"times", 1},
                  {"number", 94},
                  {"description", "Null"},
                  {"match", "行"}});
  return scenario.Document();
}

TEST(MalformedScenario, TheFullScenarioIsReplayed) {
  EXPECT_EQ(RefusalOf(FullScenario()), "");
}

TEST(MalformedScenario, AnyValueInAnyPlaceIsReplayedOrRefused) {
  const Json full = FullScenario();
  const std::vector<Json> values = {nullptr,
                                    true,
                                    -1,
                                    0.5,
                                    1e300,
                                    "text",
                                    Json::array(),
                                    Json::object(),
                                    Json::array({Json::array({1})}),
                                    18446744073709551615U};
  std::size_t refused = 0;
  const Json places = full.flatten();
  for (const auto& [place, old] : places.items()) {
    for (auto pointer = Json::json_pointer(place); !pointer.empty(); pointer.pop_back()) {
      for (const Json& value : values) {
        Json scenario = full;
        scenario[pointer] = value;
        refused += RefusalOf(scenario).empty() ? 0U : 1U;
      }
      if (pointer.back() != "0") {
        break;  // the places above it come with the first element
      }
    }
  }
  EXPECT_GT(refused, 500U);
}

TEST(MalformedScenario, AnyPlaceMayBeMissing) {
  const Json full = FullScenario();
  for (const auto& [key, value] : full.items()) {
    Json scenario = full;
    scenario.erase(key);
    EXPECT_EQ(RefusalOf(scenario).empty(), key != "calls") << key;
  }
  for (std::size_t i = 0; i < full["calls"].size(); ++i) {
    for (const auto& [key, value] : full["calls"][i].items()) {
      Json scenario = full;
      scenario["calls"][i].erase(key);
      EXPECT_EQ(RefusalOf(scenario).empty(), key != "do" && key != "value") << key;
    }
  }
}

TEST(MalformedScenario, ATextCutOffAnywhereIsRefused) {
  const std::string text = FullScenario().dump();
  for (std::size_t length = 0; length < text.size(); length += 3) {
    EXPECT_NE(RefusalOf(text.substr(0, length)), "");
  }
}

TEST(MalformedScenario, UnknownKeysAreIgnored) {
  Json scenario = FullScenario();
  scenario["comment"] = "why";
  scenario["calls"][0]["comment"] = Json::array({1});
  scenario["surface"]["Colour"] = "red";
  EXPECT_EQ(RefusalOf(scenario), "");
}

TEST(MalformedScenario, TheRefusalNamesThePlace) {
  const auto refusal = [](const char* text) { return RefusalOf(std::string(text)); };
  EXPECT_EQ(refusal(R"({"calls":[{"do":"PrintBlankRows","value":70000}]})"),
            "calls[0].value: the number is out of range");
  EXPECT_EQ(refusal(R"({"calls":[],"surface":{"Zoom":"x"}})"), "surface.Zoom: number expected");
  EXPECT_EQ(refusal(R"({"calls":[],"tables":{"A":{"columns":["x"],"rows":[[1],[1,2]]}}})"),
            "tables.A.rows[1]: one value for each column is expected");
  EXPECT_EQ(refusal(R"({"calls":[{"do":"TDSet","user":["print"]}]})"),
            "calls[0].user[0]: an object is expected");
  EXPECT_EQ(refusal(R"({"calls":[{"do":"DoPrint","user":[{"press":"cmdOk"}]}]})"),
            "calls[0].user[0]: a toolbar key, key, put or activate is expected");
}

TEST(MalformedScenario, NamesThatDifferOnlyInCaseAreTwice) {
  EXPECT_NE(RefusalOf(std::string(R"({"calls":[],"tables":{"A":{},"a":{}}})")), "");
  EXPECT_NE(RefusalOf(std::string(R"({"calls":[],"tables":{"A":{"columns":["x","X"]}}})")), "");
}

TEST(MalformedScenario, BytesMustBeBase64) {
  const auto refusal = [](const std::string& base64) {
    return RefusalOf(R"({"calls":[],"tables":{"A":{"columns":["x"],"rows":[[{"base64":")" + base64 +
                     R"("}]]}}})");
  };
  EXPECT_EQ(refusal(""), "");
  EXPECT_EQ(refusal("AQ=="), "");
  EXPECT_EQ(refusal("AQID"), "");
  EXPECT_NE(refusal("AQI"), "");
  EXPECT_NE(refusal("A?=="), "");
  EXPECT_NE(refusal("===="), "");
}

}  // namespace
}  // namespace td
