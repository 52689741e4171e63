// The page of `doc page` in a browser: the search, anchors, print, phones, no scripts, hostile definitions.
#include <gmock/gmock.h>

#include <optional>

#include "browser/browser.h"
#include "tool/hostile.h"
#include "tool/process.h"

namespace {

using browsertest::tbrowser;
using nlohmann::json;

constexpr const char* shownnames =
    "[...document.querySelectorAll('.option')].filter((option) => option.checkVisibility())"
    ".map((option) => option.querySelector('h3').textContent)";
constexpr int escape = 27, slash = 191, enter = 13;

// A page of the given definition. It must not make the browser complain or ask for another file.
class pagetest : public testing::Test {
 protected:
  void SetUp() override {
    if (!tbrowser::present()) GTEST_SKIP() << "chromium is missing: the page is not tried in a browser";
    ftool.linkexamples();
    fbrowser.emplace();
  }
  void TearDown() override {
    if (!fbrowser) return;
    EXPECT_THAT(fbrowser->takecomplaints(), testing::IsEmpty());
    for (const std::string& request : fbrowser->requests())
      EXPECT_EQ(request.substr(0, request.find('#')), faddress);
  }
  void open(const std::string& definition, const std::string& anchor = "") {
    ASSERT_EQ(ftool.run({"doc", "page", definition, "-o", "page.html"}).code, 0);
    faddress = "file://" + ftool.path("page.html");
    fbrowser->open(faddress + anchor);
  }
  void search(const std::string& text) {
    for (int i = 0; i < 2; ++i) fbrowser->press("Escape", escape);  // clears the search, then leaves it
    fbrowser->press("/", slash);
    fbrowser->type(text);
  }
  std::size_t count() { return fbrowser->value(shownnames).size(); }

  const tooltest::ttool ftool{{"hostile.def", tooltest::hostile}};
  std::optional<tbrowser> fbrowser;
  std::string faddress;
};

TEST_F(pagetest, search_narrows_the_list) {
  open("examples/solver.def");
  const std::size_t all = count();
  EXPECT_GT(all, 100U);
  const struct {
    std::string text;
    json names;
  } rows[] = {
      {"node_l", {"node_limit"}},
      {"ITERLIM", {"iteration_limit"}},          // a synonym
      {"steepest lite", {"pricing"}},            // a value and its help
      {"machine  cores", {"threads"}},           // words of the further help and a synonym
      {"relative gap stops", {"gap_relative"}},  // words in any order, names and help
      {"no such option", json::array()},
  };
  for (const auto& [text, names] : rows) {
    search(text);
    EXPECT_EQ(fbrowser->value(shownnames), names) << text;
    EXPECT_EQ(fbrowser->value("document.getElementById('~status').textContent"),
              std::to_string(names.size()) + " of " + std::to_string(all));
    EXPECT_EQ(
        fbrowser->value("[...document.querySelectorAll('nav li')].filter((i) => i.checkVisibility()).length"),
        names.size());
    EXPECT_EQ(fbrowser->value("document.getElementById('~none').checkVisibility()"), names.empty());
  }
  search("node_l");
  fbrowser->press("Enter", enter);
  EXPECT_EQ(fbrowser->value("location.hash"), "#node_limit");
  fbrowser->press("Escape", escape);
  EXPECT_EQ(count(), all);
}

TEST_F(pagetest, an_anchor_opens_its_option) {
  constexpr const char* highlighted =
      "(() => {"
      "  const plain = getComputedStyle(document.querySelector('.option')).backgroundColor;"
      "  return [...document.querySelectorAll('.option')].filter((option) => {"
      "    const box = option.getBoundingClientRect();"
      "    return getComputedStyle(option).backgroundColor !== plain && box.top >= 0 && box.top < "
      "innerHeight - 50;"
      "  }).map((option) => option.id);"
      "})()";
  open("examples/solver.def", "#probing");
  EXPECT_EQ(fbrowser->value(highlighted), json({"probing"}));
  search("threads");
  // The browser tells the page of the new address in an event.
  fbrowser->call("Runtime.evaluate", {{"expression",
                                       "new Promise((done) => {"
                                       "  addEventListener('hashchange', () => requestAnimationFrame(done));"
                                       "  location.hash = 'iterlim';"
                                       "})"},
                                      {"awaitPromise", true}});
  EXPECT_EQ(fbrowser->value(highlighted), json({"iteration_limit"}));
  EXPECT_EQ(fbrowser->value("document.getElementById('~search').value"), "");
}

// Opened without scripts, printed after a search, and on a phone, the page shows everything and is no wider.
TEST_F(pagetest, everything_is_readable) {
  constexpr const char* searchshown = "document.getElementById('~form').checkVisibility()";
  for (const char* definition : {"examples/solver.def", "hostile.def"}) {
    fbrowser->call("Emulation.setScriptExecutionDisabled", {{"value", true}});
    open(definition);
    const std::size_t all = fbrowser->value("document.querySelectorAll('.option').length");
    EXPECT_EQ(count(), all);
    EXPECT_EQ(fbrowser->value(searchshown), false);

    fbrowser->call("Emulation.setScriptExecutionDisabled", {{"value", false}});
    open(definition);
    search("gap");
    EXPECT_LT(count(), all);
    EXPECT_EQ(fbrowser->value(searchshown), true);
    fbrowser->call("Emulation.setEmulatedMedia", {{"media", "print"}});
    EXPECT_EQ(count(), all);
    EXPECT_EQ(fbrowser->value(searchshown), false);
    fbrowser->call("Emulation.setEmulatedMedia", {{"media", ""}});

    fbrowser->call("Emulation.setDeviceMetricsOverride",
                   {{"width", 360}, {"height", 740}, {"deviceScaleFactor", 1}, {"mobile", true}});
    EXPECT_EQ(fbrowser->value("document.documentElement.scrollWidth"), 360);
    fbrowser->call("Emulation.clearDeviceMetricsOverride");
  }
}

TEST_F(pagetest, a_hostile_definition_stays_text) {
  open("hostile.def");
  EXPECT_EQ(
      fbrowser->value("[typeof pwned, document.querySelectorAll('script').length,"
                      " document.querySelectorAll('img, i, b, body > :not(a, div, main, script)').length]"),
      json({"undefined", 1, 0}));
  EXPECT_EQ(fbrowser->value("document.querySelector('.help').textContent"),
            "<script>pwned = 2</script> & \"quoted\" 'single' &amp;");
  // Every id is there once, and every link leads to one.
  EXPECT_EQ(
      fbrowser->value("(() => {"
                      "  const ids = [...document.querySelectorAll('[id]')].map((element) => element.id);"
                      "  const links = [...document.querySelectorAll('a')].map((a) => a.hash.slice(1));"
                      "  return [ids.length - new Set(ids).size, links.filter((id) => !ids.includes(id))];"
                      "})()"),
      json({0, json::array()}));
}

// If a text did come through as markup, the page's policy would still refuse it.
TEST_F(pagetest, the_policy_refuses_what_the_page_did_not_bring) {
  open("hostile.def");
  fbrowser->value(
      "document.body.append(Object.assign(document.createElement('script'), {textContent: 'pwned = 6'}));"
      "document.body.insertAdjacentHTML('beforeend', '<p style=\"color: red\" onclick=\"pwned = 7\">');"
      "document.body.lastChild.click()");
  EXPECT_EQ(fbrowser->value("typeof pwned"), "undefined");
  EXPECT_THAT(fbrowser->takecomplaints(), testing::SizeIs(3));
}

}  // namespace
