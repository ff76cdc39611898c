#include "rewrite/ordered_replace.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/text_buffer.h"

namespace tamrix::modRewrite {
namespace {

using List = std::vector<NameReplacement>;

// The renaming loop as the writers describe it, one name at a time in the editing buffer.
ReplaceOutcome ReplaceOneByOne(std::string_view text, const List& list) {
    TextBuffer buffer;
    buffer.SetText(std::string(text));
    ReplaceOutcome outcome;
    for (const auto& entry : list) {
        int count = 0;
        buffer.SetSelStart(0);
        if (entry.probeOnly) {
            count = buffer.Find(entry.name, 0) >= 1 ? 1 : 0;
        } else {
            while (buffer.Find(entry.name, buffer.SelStart()) >= 1) {
                buffer.ReplaceSel(entry.replacement);
                ++count;
            }
        }
        outcome.counts.push_back(count);
        outcome.caret = static_cast<std::size_t>(buffer.SelStart());
    }
    outcome.text = buffer.Text();
    return outcome;
}

TEST(OrderedReplace, GeneratedNamesGoInOnePass) {
    // One long name makes the text checked around each short one reach over
    // several neighbouring lines.
    const List list{{"a1.htm", "main.htm"},
                    {"A2.HTM", "mass.htm"},
                    {"a3.htm", "three.htm"},
                    {"a_much_longer_generated_name.htm", "long.htm"}};
    const std::string text =
        "[FILES]\r\nhtml\\a1.htm\r\nhtml\\a2.htm\r\nhtml\\A3.htm\r\n"
        "html\\a_much_longer_generated_name.htm\r\n[ALIAS]\r\nX=html\\a1.htm\r\n";
    const auto outcome = ReplaceInOrder(text, list);
    EXPECT_TRUE(outcome.onePass);
    EXPECT_EQ(outcome.text,
              "[FILES]\r\nhtml\\main.htm\r\nhtml\\mass.htm\r\nhtml\\three.htm\r\n"
              "html\\long.htm\r\n[ALIAS]\r\nX=html\\main.htm\r\n");
    EXPECT_EQ(outcome.counts, (std::vector<int>{2, 1, 1, 1}));
}

TEST(OrderedReplace, KeepsTheRulesOfTheOneByOneLoop) {
    // A name at position 0 is never replaced, not even further on.
    auto outcome = ReplaceInOrder("a1.htm a1.htm b.htm", {{"a1.htm", "x.htm"}, {"b.htm", "y.htm"}});
    EXPECT_EQ(outcome.text, "a1.htm a1.htm y.htm");
    EXPECT_EQ(outcome.counts, (std::vector<int>{0, 1}));
    // A new name holding the old one: replaced once per pass, twice when listed twice.
    outcome = ReplaceInOrder(" a.htm a.htm", {{"a.htm", "xa.htm"}, {"A.htm", "xa.htm"}});
    EXPECT_EQ(outcome.text, " xxa.htm xxa.htm");
    EXPECT_FALSE(outcome.onePass);
    // A later name formed by an earlier replacement is replaced too.
    outcome = ReplaceInOrder(" q.htm", {{"q.htm", "b.htm"}, {"b.htm", "c.htm"}});
    EXPECT_EQ(outcome.text, " c.htm");
    EXPECT_EQ(outcome.counts, (std::vector<int>{1, 1}));
    // The caret: after the last inserted name, at a name a probe found, else at 0.
    outcome = ReplaceInOrder("<a b.htm> b.htm x.htm", {{"B.HTM", "long.htm"}});
    EXPECT_EQ(outcome.caret, 21u);
    outcome = ReplaceInOrder("<a b.htm> x.htm", {{"b.htm", "c.htm"}, {"x.htm", "", true}});
    EXPECT_EQ(outcome.text, "<a c.htm> x.htm");
    EXPECT_EQ(outcome.counts, (std::vector<int>{1, 1}));
    EXPECT_EQ(outcome.caret, 10u);
    EXPECT_EQ(ReplaceInOrder("x.htm b.htm", {{"b.htm", "c.htm"}, {"x.htm", "", true}}).caret, 0u);
}

TEST(OrderedReplace, StopsOnceAnEntryPassesTheLimit) {
    std::string text = "x";
    for (int i = 0; i < 200000; ++i) text += " a.htm";
    // The new name holds the old one, so the names go one by one; the limit keeps
    // that from rewriting a large text thousands of times.
    const auto outcome = ReplaceInOrder(text, {{"a.htm", "xa.htm"}, {"b.htm", "c.htm"}}, 10);
    EXPECT_FALSE(outcome.onePass);
    EXPECT_EQ(outcome.counts, (std::vector<int>{11, 0}));
    EXPECT_EQ(ReplaceInOrder(" a.htm a.htm", {{"a.htm", "b.htm"}}, 1).counts, std::vector<int>{2});
}

// Small alphabets make overlaps, adjacency and accidental new occurrences
// frequent; every outcome must equal the one-by-one loop.
TEST(OrderedReplace, AgreesWithTheOneByOneLoopOnRandomTexts) {
    std::mt19937 random(20110305);
    auto word = [&](int maxLength, const char* letters, int minLength = 1) {
        std::string w(minLength + random() % (maxLength - minLength + 1), ' ');
        const std::size_t n = std::char_traits<char>::length(letters);
        for (char& c : w) c = letters[random() % n];
        return w;
    };
    int onePass = 0;
    for (int round = 0; round < 4000; ++round) {
        const char* letters = round % 2 == 0 ? "abAB." : "abcdefgh\\.";
        // Every third round has only long names, which are looked for by skipping.
        const bool longNames = round % 3 == 2;
        const std::string text = word(longNames ? 200 : 60, letters);
        List list;
        const int names = 1 + static_cast<int>(random() % 6);
        for (int i = 0; i < names; ++i)
            list.push_back({longNames ? word(9, letters, 4) : word(4, letters), word(5, letters),
                            random() % 4 == 0});
        if (round % 7 == 0) list.push_back({"", "x"});
        const auto fast = ReplaceInOrder(text, list);
        const auto slow = ReplaceOneByOne(text, list);
        ASSERT_EQ(fast.text, slow.text) << "text " << text << " round " << round;
        ASSERT_EQ(fast.counts, slow.counts) << "text " << text << " round " << round;
        ASSERT_EQ(fast.caret, slow.caret) << "text " << text << " round " << round;
        onePass += fast.onePass ? 1 : 0;
    }
    // Both ways must have been exercised for the comparison to mean anything.
    EXPECT_GT(onePass, 400);
    EXPECT_LT(onePass, 3600);
}

// A large text is searched a piece at a time: a name must be found whichever
// piece it starts in and however it straddles the pieces' edges, in any case.
TEST(OrderedReplace, FindsNamesStraddlingAnyPointOfALargeText) {
    const List shortNames = {{"q", "1"}, {"rs", "22"}, {"tuv", "x"}};
    const List longNames = {{"t2.htm", "two.htm"}, {"topic33.htm", "Three.htm"}};
    for (const List* list : {&shortNames, &longNames}) {
        for (std::size_t offset = 0; offset < 12; ++offset) {
            std::string text(150000, '-');
            std::size_t k = 0;
            // A name every 4 KiB, ending `offset` characters past the boundary.
            for (std::size_t at = 4096; at + 64 < text.size(); at += 4096, ++k) {
                std::string name = (*list)[k % list->size()].name;
                if (k % 2 == 1) name[0] = static_cast<char>(std::toupper(name[0]));
                const std::size_t start = at + offset > name.size() ? at + offset - name.size() : 0;
                text.replace(start, name.size(), name);
            }
            const auto fast = ReplaceInOrder(text, *list);
            const auto slow = ReplaceOneByOne(text, *list);
            EXPECT_TRUE(fast.onePass);
            ASSERT_EQ(fast.counts, slow.counts) << "offset " << offset;
            ASSERT_EQ(fast.text, slow.text) << "offset " << offset;
            EXPECT_EQ(fast.counts[0], static_cast<int>((k + list->size() - 1) / list->size()));
        }
    }
    // A name longer than any piece is still found whole.
    const std::string longName = std::string(70000, 'n') + ".htm";
    std::string text(200000, '-');
    text.replace(60000, longName.size(), longName);
    const auto outcome = ReplaceInOrder(text, {{longName, "Short.htm"}});
    EXPECT_EQ(outcome.counts, std::vector<int>{1});
    EXPECT_EQ(outcome.text, std::string(60000, '-') + "Short.htm" +
                                std::string(200000 - 60000 - longName.size(), '-'));
}

}  // namespace
}  // namespace tamrix::modRewrite
