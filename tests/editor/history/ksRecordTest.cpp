// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/ksEditorError.h>

#include <gmock/gmock.h>

#include <sstream>
#include <streambuf>

namespace {

/// Takes some bytes and no more. Counts how often it was flushed.
class Outlet : public std::streambuf
{
public:
    explicit Outlet(int most)
        : room(most)
    {}

    std::string text;
    int flushes = 0;

private:
    int overflow(int character) override
    {
        if (room-- <= 0)
            return EOF;
        text += static_cast<char>(character);
        return character;
    }

    int sync() override
    {
        ++flushes;
        return 0;
    }

    int room;
};

} // namespace

TEST(ksRecord, KeepsALineALine)
{
    std::ostringstream out;
    ksRecord record(out);
    record.line(QString::fromUtf8("Tab\tle\r\n\x1b[31m \xc2\x85 \xe2\x80\xa8 \xe2\x80\xae "
                                  "\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f K\xc3\xbc"
                                  "che \\n"));
    EXPECT_EQ(out.str(), "Tab\\tle\\r\\n\\u001b[31m \\u0085 \\u2028 \\u202e \\u061c\\u200e\\u200f K\xc3\xbc"
                         "che \\n\n");
}

TEST(ksRecord, HasColoursOnlyWhereTheyAreWanted)
{
    std::ostringstream out;
    ksRecord plain(out);
    plain.line(QStringLiteral("a"), ksRecord::Tone::Good, QStringLiteral("b"));
    EXPECT_EQ(out.str(), "ab\n");
    out.str({});
    ksRecord coloured(out, {ksRecordStyle::Short, false, true});
    coloured.line(QStringLiteral("a"), ksRecord::Tone::Good, QStringLiteral("b"));
    coloured.line(QStringLiteral("c"));
    EXPECT_EQ(out.str(), "\x1b[32ma\x1b[0m\x1b[2mb\x1b[0m\nc\n");
}

TEST(ksRecord, IsEitherTextOrJson)
{
    const QJsonObject object{{QStringLiteral("a"), QStringLiteral("x\ny")}};
    std::ostringstream out;
    ksRecord text(out);
    text.object(object);
    text.line(QStringLiteral("line"));
    text.print(QStringLiteral("printed\tas it is"));
    EXPECT_EQ(out.str(), "line\nprinted\tas it is\n");
    out.str({});
    ksRecord json(out, {ksRecordStyle::Short, true});
    json.object(object);
    json.line(QStringLiteral("line"));
    json.print(QStringLiteral("a\tb"));
    EXPECT_EQ(out.str(), "{\"a\":\"x\\ny\"}\n{\"event\":\"print\",\"text\":\"a\\tb\"}\n");
}

TEST(ksRecord, LetsEveryLineOut)
{
    Outlet outlet(100);
    std::ostream out(&outlet);
    ksRecord record(out);
    record.line(QStringLiteral("one"));
    EXPECT_EQ(outlet.flushes, 1);
    record.print(QStringLiteral("two"));
    EXPECT_EQ(outlet.flushes, 2);
    EXPECT_EQ(record.failure(), QString());
}

TEST(ksRecord, SaysThatALineCannotBeWritten)
{
    Outlet outlet(5);
    std::ostream out(&outlet);
    ksRecord record(out);
    record.line(QStringLiteral("1234"));
    EXPECT_THROW(record.line(QStringLiteral("5678")), ksOutputError);
    EXPECT_THAT(record.failure().toStdString(), testing::StartsWith("the record cannot be written: "));
    EXPECT_EQ(outlet.text, "1234\n");
}
