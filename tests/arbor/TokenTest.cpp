#include <grafel/arbor/Token.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using Arbor::Token;

TEST(Token, FindNeverInterns) {
    EXPECT_TRUE(Token::find("token-test-never-seen").isNull());
    EXPECT_TRUE(Token::find("token-test-never-seen").isNull());
    EXPECT_TRUE(Token::find(static_cast<const char*>(nullptr)).isNull());
}

TEST(Token, LiteralAndCopyGiveOneWordEitherOrder) {
    static const char literal[] = "token-test-literal-first";
    Token a(literal, false);
    EXPECT_EQ(a.c_str(), literal); // a new literal is used in place
    std::string transient = "token-test-literal-first";
    Token b(transient.c_str(), true);
    EXPECT_EQ(a, b);

    std::string first = "token-test-copy-first";
    Token c(first.c_str(), true);
    first.assign("overwritten-after-interning");
    static const char literal2[] = "token-test-copy-first";
    Token d(literal2, false);
    EXPECT_EQ(c, d);
    EXPECT_STREQ(c.c_str(), "token-test-copy-first");
    EXPECT_EQ(Token::find("token-test-copy-first"), c);
}

TEST(Token, NullToken) {
    Token n;
    EXPECT_TRUE(n.isNull());
    EXPECT_EQ(Token(nullptr, true), n);
    EXPECT_STREQ(n.text(), "");
}

TEST(Token, InterningFromManyThreadsGivesOneWord) {
    constexpr int threads = 8;
    constexpr int names = 200;
    std::vector<std::vector<Token>> seen(threads);
    std::vector<std::thread> pool;
    for (int t = 0; t < threads; ++t)
        pool.emplace_back([t, &seen] {
            for (int i = 0; i < names; ++i)
                seen[t].push_back(Token(("mt-token-" + std::to_string(i)).c_str(), true));
        });
    for (auto& th : pool) th.join();
    for (int t = 1; t < threads; ++t) EXPECT_EQ(seen[t], seen[0]);
}
