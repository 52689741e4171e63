// doc page: what a definition says stands in the page as text, and names become anchors.
#include "tool/hostile.h"
#include "tool/process.h"

namespace {

using tooltest::ttool;

TEST(page, texts_are_escaped) {
  const ttool tool({{"a&b.def", tooltest::hostile}});
  const std::string page = tool.run({"doc", "page", "a&b.def", "-o", "-"}).out;
  constexpr std::string_view fragments[] = {
      "<title>Options: a&amp;b.def</title>",
      "<p class=\"about\">a&amp;b.def<br>9 options in 2 groups</p>",
      "from one of the characters <code>!&lt;</code>.",
      ">A &amp; B &lt;b&gt;&quot;bold&quot;&lt;/b&gt;</h2>",
      ">]]&gt; --&gt; &lt;/script&gt;&lt;script&gt;pwned = 1&lt;/script&gt;</h2>",
      ">&lt;script&gt;pwned = 2&lt;/script&gt; &amp; &quot;quoted&quot; &#39;single&#39; &amp;amp;</p>",
      ">&lt;/p&gt;&lt;/article&gt;&lt;img src=x onerror=&quot;pwned = 3&quot;&gt;\n"
      "Rätsel \\x01\\x1b[31m \\x7f {{style}} nul:\\x00:end</p>",
      "<dd><code>&quot;&lt;/style&gt;&lt;script&gt;pwned = 4&lt;/script&gt;&quot;</code></dd>",
      ">javascript:pwned=5</p>",
      "<div class=\"default\"><dt class=\"find\"><code>&quot;&lt;a b&gt;&quot;</code></dt><dd "
      "class=\"find\">&lt;i&gt;first&lt;/i&gt;</dd>",
      "<strong>deprecated</strong>: &lt;b&gt;use&lt;/b&gt; &quot;gap&quot;</span>",
      "<strong>deprecated</strong>: &amp; so on</span>",
      "<strong>obsolete</strong>: &lt;/article&gt;use gap</span>",
      "<article class=\"option\" id=\".gap\">",
      "<code class=\"find\" id=\"former\">former</code>",
      "Stands for <a href=\"#gap\"><code>gap</code></a>, <a href=\"#search\"><code>search</code></a></p>",
  };
  for (const std::string_view fragment : fragments)
    EXPECT_NE(page.find(fragment), std::string::npos) << fragment;
  for (const std::string_view raw : {"pwned = 1</", "<img", "<i>", "\x1b", "\xE4t"})
    EXPECT_EQ(page.find(raw), std::string::npos) << raw;
}

// Names that are used twice are errors of the definition, and still have anchors of their own.
TEST(page, anchors_are_unique) {
  const ttool tool({{"solver.def",
                     "Minos lookup\n"
                     "main_limit integer 1 5 0 9 1 0 Limit\n"
                     "MAIN_LIMIT integer 2 5 0 9 1 0 Limit\n"
                     "upper synonym main_limit\n"
                     "upper synonym main_limit\n"}});
  const auto result = tool.run({"doc", "page", "solver.def", "-o", "-"});
  for (const std::string_view fragment : {"id=\"main_limit\">", "id=\"MAIN_LIMIT\">", "id=\"upper\">",
                                          "id=\"upper-2\">", ">main limit</a></h3>"})
    EXPECT_NE(result.out.find(fragment), std::string::npos) << fragment;
  EXPECT_EQ(result.code, 1);
}

}  // namespace
