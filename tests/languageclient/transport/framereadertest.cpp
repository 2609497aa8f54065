#include "languageclient/transport/framereader.h"

#include "languageclient/transport/framewriter.h"
#include "support/qtcore/chunkeddevice.h"
#include "support/qtcore/hostlog.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Halvorin::LSP;

namespace {

/// A device with a reader at its end that keeps what it hands over, as compact JSON.
class Reading
{
public:
    Reading()
    {
        new FrameReader(*m_device, [this](const QJsonDocument& document, const QDateTime& timestamp) {
            EXPECT_TRUE(timestamp.isValid());
            m_documents.push_back(document.toJson(QJsonDocument::Compact).toStdString());
            if (m_onDocument)
                m_onDocument();
        });
    }

    void feed(const QByteArray& bytes) { m_device->feed(bytes); }
    ChunkedDevice& device() { return *m_device; }
    void dropDevice() { m_device.reset(); }
    void onDocument(std::function<void()> action) { m_onDocument = std::move(action); }

    /// What came since the last call; a null document is an empty text.
    std::vector<std::string> taken() { return std::exchange(m_documents, {}); }

private:
    std::unique_ptr<ChunkedDevice> m_device = std::make_unique<ChunkedDevice>();
    std::vector<std::string> m_documents;
    std::function<void()> m_onDocument;
};

QByteArray frame(const QByteArray& body)
{
    return "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

using Documents = std::vector<std::string>;

} // namespace

TEST(FrameReader, HandsOverTwoMessagesOfOneSegmentInOrder)
{
    Reading reading;
    reading.feed(frame(R"({"a":1})") + frame(R"({"b":2})"));
    EXPECT_EQ(reading.taken(), (Documents{R"({"a":1})", R"({"b":2})"}));
}

TEST(FrameReader, StampsEachMessageWithTheLocalTimeAtWhichItWasRead)
{
    ChunkedDevice device;
    std::vector<QDateTime> timestamps;
    new FrameReader(device, [&timestamps](const QJsonDocument&, const QDateTime& timestamp) {
        timestamps.push_back(timestamp);
        QThread::msleep(2);
    });
    const QDateTime before = QDateTime::currentDateTime();
    device.feed(frame("{}") + frame("{}"));
    ASSERT_EQ(timestamps.size(), 2U);
    EXPECT_EQ(timestamps[0].timeSpec(), Qt::LocalTime);
    EXPECT_LE(before, timestamps[0]);
    EXPECT_LT(timestamps[0], timestamps[1]);
    EXPECT_LE(timestamps[1], QDateTime::currentDateTime());
}

TEST(FrameReader, HandsOverAMessageSplitInItsBodyWhenTheRestArrives)
{
    Reading reading;
    const QByteArray bytes = frame(R"({"key":"value"})");
    reading.feed(bytes.left(bytes.size() - 5));
    EXPECT_EQ(reading.taken(), Documents{});
    reading.feed(bytes.right(5));
    EXPECT_EQ(reading.taken(), Documents{R"({"key":"value"})"});
}

TEST(FrameReader, ReadsAHeaderLineThatWasSplitWholeOnTheNextCall)
{
    Reading reading;
    reading.feed("Content-Le");
    EXPECT_EQ(reading.taken(), Documents{});
    reading.feed("ngth: 2\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
}

TEST(FrameReader, DoesNotTakeTheStartOfASecondHeaderLineForTheBody)
{
    Reading reading;
    reading.feed("Content-Length: 2\r\nContent-Type: x");
    EXPECT_EQ(reading.taken(), Documents{});
    reading.feed("\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
}

TEST(FrameReader, GivesTheSameWhereverTheBytesAreCut)
{
    const HostLog log;
    const QByteArray bytes = frame(R"({"id":1,"text":"Zeilenende\nund weiter"})") +
                             "Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nX-Other: "
                             "y\r\nContent-Length: 9\r\n\r\n[1,\n2,\n3]" +
                             frame("{ \"\xC3\xA4\" : \"\xE2\x82\xAC\" }");
    const Documents expected{R"({"id":1,"text":"Zeilenende\nund weiter"})", "[1,2,3]",
                             "{\"\xC3\xA4\":\"\xE2\x82\xAC\"}"};
    for (int first = 0; first <= bytes.size(); ++first) {
        Reading reading;
        reading.feed(bytes.left(first));
        reading.feed(bytes.mid(first));
        ASSERT_EQ(reading.taken(), expected) << "cut at " << first;
    }
    Reading reading;
    for (const char byte : bytes)
        reading.feed(QByteArray(1, byte));
    EXPECT_EQ(reading.taken(), expected);
}

TEST(FrameReader, GivesANullDocumentForALengthOfZero)
{
    Reading reading;
    reading.feed("Content-Length: 0\r\n\r\n" + frame("{}"));
    EXPECT_EQ(reading.taken(), (Documents{"", "{}"}));
}

TEST(FrameReader, DoesNotLookAtTheContentTypeNorAtItsPlace)
{
    for (const char* header :
         {"Content-Type: a:b\r\nContent-Length: 2\r\n\r\n", "Content-Length: 2\r\nContent-Type: \r\n\r\n"}) {
        const HostLog log;
        Reading reading;
        reading.feed(QByteArray(header) + "{}" + frame("[]"));
        EXPECT_EQ(reading.taken(), (Documents{"{}", "[]"})) << header;
        EXPECT_TRUE(log.lines().empty());
    }
}

TEST(FrameReader, WarnsOfAHeaderLineOfAnotherNameAndReadsTheBody)
{
    const HostLog log;
    Reading reading;
    reading.feed("X-Trace: 7\r\nContent-Length: 2\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
    EXPECT_EQ(log.lines(), Documents{"warning: langserv: Unknown header type: X-Trace: 7\r\n"});
}

TEST(FrameReader, TellsHeaderNamesApartByCase)
{
    const HostLog log;
    Reading reading;
    reading.feed("content-length: 4\r\nContent-Length: 2\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST(FrameReader, WarnsOnceOfEachLineOfABlockHoweverItArrives)
{
    const HostLog log;
    Reading reading;
    for (const char byte : QByteArray("X-One: 1\r\nX-Two: 2\r\nContent-Length: 2\r\n\r\n{}"))
        reading.feed(QByteArray(1, byte));
    EXPECT_EQ(log.lines().size(), 2U);
    reading.feed("X-One: 1\r\nContent-Length: 2\r\n\r\n{}"); // another block
    EXPECT_EQ(log.lines().size(), 3U);
    EXPECT_EQ(reading.taken(), (Documents{"{}", "{}"}));
}

TEST(FrameReader, TakesTheLastOfSeveralLengths)
{
    Reading reading;
    reading.feed("Content-Length: 1000\r\nContent-Length: 2\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
}

TEST(FrameReader, TakesWhatStandsBehindTheLastColonAsTheLength)
{
    Reading reading;
    reading.feed("Content-Length: 1000: 2\r\n\r\n{}");
    EXPECT_EQ(reading.taken(), Documents{"{}"});
}

TEST(FrameReader, TakesALengthThatIsNoNumberAsZero)
{
    for (const char* length : {"two", "", "2x", "99999999999999999999", "0x2", "-2"}) {
        Reading reading;
        reading.feed("Content-Length: " + QByteArray(length) + "\r\n\r\n" + frame("{}"));
        EXPECT_EQ(reading.taken(), (Documents{"", "{}"})) << length;
    }
}

TEST(FrameReader, StaysInStepBehindABodyThatIsNoJson)
{
    Reading reading;
    reading.feed(frame("this is no JSON") + frame("\xFF\xFE") + frame(R"("text")") + frame("{}"));
    EXPECT_EQ(reading.taken(), (Documents{"", "", "", "{}"}));
}

TEST(FrameReader, SurvivesABodyOfManyLevels)
{
    Reading reading;
    reading.feed(frame(QByteArray(200'000, '[')) +
                 frame(QByteArray(200'000, '[') + QByteArray(200'000, ']')) + frame("{}"));
    EXPECT_EQ(reading.taken(), (Documents{"", "", "{}"}));
}

TEST(FrameReader, PassesOverBlankLinesBetweenMessages)
{
    Reading reading;
    reading.feed("\r\n\r\n" + frame("{}") + "\n\r\n" + frame("[]"));
    EXPECT_EQ(reading.taken(), (Documents{"{}", "[]"}));
}

TEST(FrameReader, TakesABodyWithoutABlankLineBeforeIt)
{
    Reading reading;
    reading.feed("Content-Length: 2\r\n{}");
    reading.feed(frame("[]"));
    EXPECT_EQ(reading.taken(), (Documents{"{}", "[]"}));
}

TEST(FrameReader, WaitsForALengthThatNeverComes)
{
    const HostLog log;
    Reading reading;
    reading.feed("Content-Type: x\r\n\r\n{}");
    reading.feed("{}");
    EXPECT_EQ(reading.taken(), Documents{});
}

TEST(FrameReader, TakesThousandsOfMessagesInOneSegment)
{
    QByteArray bytes;
    for (int number = 0; number < 20'000; ++number)
        bytes += frame("[" + QByteArray::number(number) + "]");
    Reading reading;
    reading.feed(bytes);
    const Documents documents = reading.taken();
    ASSERT_EQ(documents.size(), 20'000U);
    EXPECT_EQ(documents.back(), "[19999]");
}

TEST(FrameReader, TakesABodyOfFiftyMegabytesInPieces)
{
    const QByteArray bytes = frame("[\"" + QByteArray(50'000'000, 'x') + "\"]") + frame("{}");
    Reading reading;
    std::size_t documents = 0;
    std::size_t length = 0;
    for (int position = 0; position < bytes.size(); position += 1 << 20)
        reading.feed(bytes.mid(position, 1 << 20));
    for (const std::string& document : reading.taken()) {
        ++documents;
        length += document.size();
    }
    EXPECT_EQ(documents, 2U);
    EXPECT_EQ(length, 50'000'004U + 2U);
}

TEST(FrameReader, GoesOnWhenAHandlerThrows)
{
    const HostLog log;
    Reading reading;
    int count = 0;
    reading.onDocument([&count] {
        if (++count == 1)
            throw std::runtime_error("the first one");
        if (count == 2)
            throw 2;
    });
    reading.feed(frame("[1]") + frame("[2]") + frame("[3]"));
    EXPECT_EQ(reading.taken(), (Documents{"[1]", "[2]", "[3]"}));
    EXPECT_EQ(log.lines(), (Documents{"error: lspclient: the first one", "error: lspclient: unknown error"}));
}

TEST(FrameReader, KeepsTheOrderWhenMoreArrivesInsideAHandler)
{
    Reading reading;
    bool first = true;
    reading.onDocument([&] {
        if (std::exchange(first, false))
            reading.feed(frame("[3]")); // as an event loop of the handler's would
    });
    reading.feed(frame("[1]") + frame("[2]"));
    EXPECT_EQ(reading.taken(), (Documents{"[1]", "[2]", "[3]"}));
}

TEST(FrameReader, LetsAHandlerWriteToTheDevice)
{
    Reading reading;
    reading.onDocument([&reading] { writeFrame(reading.device(), "{}"); });
    reading.feed(frame("[1]") + frame("[2]"));
    EXPECT_EQ(reading.taken().size(), 2U);
    EXPECT_EQ(reading.device().written(), frame("{}") + frame("{}"));
}

TEST(FrameReader, LetsAHandlerDeleteTheDevice)
{
    Reading reading;
    reading.onDocument([&reading] { reading.dropDevice(); });
    reading.device().feed(frame("[1]") + frame("[2]"));
    EXPECT_EQ(reading.taken(), Documents{"[1]"});
}

TEST(FrameReader, LetsAHandlerCloseTheDevice)
{
    Reading reading;
    reading.onDocument([&reading] { reading.device().close(); });
    reading.feed(frame("[1]") + frame("[2]"));
    EXPECT_EQ(reading.taken(), Documents{"[1]"});
}

TEST(FrameWriter, CountsBytesAndWritesNoOtherHeader)
{
    ChunkedDevice device;
    writeFrame(device, "\"\xE2\x82\xAC\"");
    EXPECT_EQ(device.written(), "Content-Length: 5\r\n\r\n\"\xE2\x82\xAC\"");
}
