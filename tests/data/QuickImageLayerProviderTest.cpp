// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QuickImageLayerProvider.h"
#include "Records.h"
#include "data/ImageLayerImageResponse.h"
#include "data/PictureReader.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QBuffer>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickTextureFactory>
#include <QThread>
#include <QUrl>
#include <memory>
#include <vector>

using namespace Records;

namespace {

// Notes every picture that is asked for, with its callbacks, and on which thread.
class PictureLink : public FakeCommunicator
{
public:
    void getImage(const QUuid &uid, const ImageCallback &done, const Done &failed) override
    {
        asked.push_back({uid, done, failed});
        isOnOwnThread = isOnOwnThread && QThread::currentThread() == thread();
    }

    struct Asked
    {
        QUuid uid;
        ImageCallback done;
        Done failed;
    };
    std::vector<Asked> asked;
    bool isOnOwnThread = true;
};

QByteArray png(int width, int height, const QColor &color = Qt::red)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// A whole picture of one bit for each pixel: tens of kilobytes that would unpack to gigabytes.
QByteArray hugePng()
{
    QImage image(20000, 20000, QImage::Format_Mono);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 0);
    return bytes;
}

Model::ImageItem::Image picture(const QByteArray &bytes)
{
    return {bytes, QStringLiteral("png")};
}

using Response = std::unique_ptr<QQuickImageResponse>;

QString encoded(uint n)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text(n)));
}

struct Outcome
{
    QString error;
    QImage image;
};

// What the engine takes from a response that has finished.
Outcome outcomeOf(QQuickImageResponse &response)
{
    Outcome outcome;
    outcome.error = response.errorString();
    const std::unique_ptr<QQuickTextureFactory> texture(response.textureFactory());
    if (texture)
        outcome.image = texture->image();
    return outcome;
}

} // namespace

class QuickImageLayerProviderTest : public TestBase
{
    Q_OBJECT

private:
    static Response request(QuickImageLayerProvider &provider, const QString &id, const QSize &size = {})
    {
        return Response(provider.requestImageResponse(id, size));
    }

private slots:
    void bringsThePicture()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto response = request(provider, encoded(1));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));
        QCOMPARE(link.asked[0].uid, uid(1));

        link.asked[0].done(picture(png(7, 5)));

        QVERIFY(finished.isEmpty()); // never within the call
        QTRY_COMPARE(finished.size(), 1);
        const auto outcome = outcomeOf(*response);
        QCOMPARE(outcome.error, QString());
        QCOMPARE(outcome.image.size(), QSize(7, 5));
        QCOMPARE(outcome.image.pixelColor(0, 0), QColor(Qt::red));
    }

    void asksOnceWhatItHolds()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto first = request(provider, encoded(1));
        QTRY_COMPARE(link.asked.size(), std::size_t(1));
        link.asked[0].done(picture(png(7, 5)));

        const auto second = request(provider, text(1), QSize(14, 3)); // however the id is written
        QSignalSpy finished(second.get(), &QQuickImageResponse::finished);
        QVERIFY(finished.isEmpty());
        QTRY_COMPARE(finished.size(), 1);

        QCOMPARE(outcomeOf(*second).image.size(), QSize(14, 3));
        QCOMPARE(link.asked.size(), std::size_t(1));
    }

    void twoRequestsAtOnceBothAskAndFillOneEntry()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto first = request(provider, encoded(1));
        const auto second = request(provider, encoded(1));
        QSignalSpy firstFinished(first.get(), &QQuickImageResponse::finished);
        QSignalSpy secondFinished(second.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(2));

        link.asked[0].done(picture(png(1, 1)));
        link.asked[1].done(picture(png(2, 2)));
        QTRY_VERIFY(firstFinished.size() == 1 && secondFinished.size() == 1);

        QCOMPARE(outcomeOf(*first).image.size(), QSize(1, 1));
        QCOMPARE(outcomeOf(*second).image.size(), QSize(2, 2));
        const auto third = request(provider, encoded(1));
        QSignalSpy thirdFinished(third.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(thirdFinished.size(), 1);
        QCOMPARE(outcomeOf(*third).image.size(), QSize(2, 2)); // the later answer replaced the first
    }

    void everyChangeOfTheLinkEmptiesIt()
    {
        PictureLink link;
        link.enter(FakeCommunicator::Connected);
        QuickImageLayerProvider provider(link);
        std::vector<Response> responses;
        std::size_t asked = 0;
        for (const auto status : {FakeCommunicator::Connecting, FakeCommunicator::Connected,
                                  FakeCommunicator::Disconnected, FakeCommunicator::Connecting}) {
            responses.push_back(request(provider, encoded(1)));
            ++asked;
            QTRY_COMPARE(link.asked.size(), asked);
            link.asked.back().done(picture(png(1, 1)));
            link.enter(status);
        }
    }

    void anAnswerThatWasAskedForBeforeIsNotKept()
    {
        PictureLink link;
        link.enter(FakeCommunicator::Connected);
        QuickImageLayerProvider provider(link);
        const auto old = request(provider, encoded(1));
        QSignalSpy finished(old.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));

        link.enter(FakeCommunicator::Disconnected);
        link.enter(FakeCommunicator::Connected);
        link.asked[0].done(picture(png(1, 1)));
        QTRY_COMPARE(finished.size(), 1);

        QVERIFY(!outcomeOf(*old).error.isEmpty());
        const auto fresh = request(provider, encoded(1));
        QTRY_COMPARE(link.asked.size(), std::size_t(2));
    }

    void aFailureFinishesWithAnError_data()
    {
        QTest::addColumn<QString>("how");

        for (const auto *const how : {"error", "never", "empty", "garbage", "truncated", "both"})
            QTest::newRow(how) << QString(how);
    }

    void aFailureFinishesWithAnError()
    {
        QFETCH(QString, how);
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto response = request(provider, encoded(1));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));
        auto asked = link.asked[0];

        if (how == "error" || how == "both")
            asked.failed();
        if (how == "never")
            link.asked.clear(); // the link drops its callbacks
        if (how == "empty")
            asked.done(picture({}));
        if (how == "garbage" || how == "both")
            asked.done(picture("no picture at all"));
        if (how == "truncated")
            asked.done(picture(png(100, 100).left(40)));
        if (how != "never")
            asked.failed(); // a second answer changes nothing
        else
            asked = {};

        QTRY_COMPARE(finished.size(), 1);
        const auto outcome = outcomeOf(*response);
        QVERIFY(!outcome.error.isEmpty());
        QVERIFY(outcome.image.isNull());
    }

    void aBadIdFailsWithoutARequest_data()
    {
        QTest::addColumn<QString>("id");

        QTest::newRow("empty") << "";
        QTest::newRow("text") << "plan.png";
        QTest::newRow("null uid") << QUuid().toString();
        QTest::newRow("more behind it") << text(1) + "/../x";
        QTest::newRow("more before it") << "x" + text(1);
        QTest::newRow("encoded twice") << QString::fromLatin1(QUrl::toPercentEncoding(encoded(1)));
        QTest::newRow("broken encoding") << "%7B%ZZ%";
        QTest::newRow("half") << text(1).left(20);
        QTest::newRow("long") << QString(100000, '{');
    }

    void aBadIdFailsWithoutARequest()
    {
        QFETCH(QString, id);
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto response = request(provider, id);
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);

        QTRY_COMPARE(finished.size(), 1);
        QVERIFY(!outcomeOf(*response).error.isEmpty());
        QVERIFY(link.asked.empty());
    }

    void aResponseMayGoBeforeItsAnswer()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        auto response = request(provider, encoded(1));
        QTRY_COMPARE(link.asked.size(), std::size_t(1));

        response.reset();
        link.asked[0].done(picture(png(3, 3)));

        const auto next = request(provider, encoded(1)); // what came was kept all the same
        QSignalSpy finished(next.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(outcomeOf(*next).image.size(), QSize(3, 3));
        QCOMPARE(link.asked.size(), std::size_t(1));
    }

    void aCancelledResponseStillFinishesOnce()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        const auto response = request(provider, encoded(1));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));

        response->cancel();
        link.asked[0].done(picture(png(3, 3)));

        QTRY_COMPARE(finished.size(), 1);
        QVERIFY(outcomeOf(*response).image.isNull()); // nobody wants it decoded
    }

    void aTextureNobodyTookGoesWithTheResponse()
    {
        PictureLink link;
        QuickImageLayerProvider provider(link);
        auto response = request(provider, encoded(1));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));
        link.asked[0].done(picture(png(3, 3)));
        QTRY_COMPARE(finished.size(), 1);

        const std::unique_ptr<QQuickTextureFactory> texture(response->textureFactory());
        QVERIFY(texture != nullptr);
        QVERIFY(response->textureFactory() == nullptr); // handed out once
        response.reset();
        QCOMPARE(texture->textureSize(), QSize(3, 3));
    }

    void theProviderMayGoWhileRequestsAreOut()
    {
        PictureLink link;
        auto provider = std::make_unique<QuickImageLayerProvider>(link);
        const auto response = request(*provider, encoded(1));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link.asked.size(), std::size_t(1));

        provider.reset();
        link.enter(FakeCommunicator::Connecting);
        link.asked[0].done(picture(png(3, 3)));

        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(outcomeOf(*response).image.size(), QSize(3, 3));
    }

    void theLinkMayGoFirst()
    {
        auto link = std::make_unique<PictureLink>();
        QuickImageLayerProvider provider(*link);
        const auto out = request(provider, encoded(1));
        QSignalSpy outFinished(out.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(link->asked.size(), std::size_t(1));
        const auto posted = request(provider, encoded(2)); // not delivered yet
        QSignalSpy postedFinished(posted.get(), &QQuickImageResponse::finished);

        link.reset();
        const auto late = request(provider, encoded(3));
        QSignalSpy lateFinished(late.get(), &QQuickImageResponse::finished);

        QTRY_VERIFY(outFinished.size() == 1 && postedFinished.size() == 1 && lateFinished.size() == 1);
        QVERIFY(!out->errorString().isEmpty());
        QVERIFY(!posted->errorString().isEmpty());
        QVERIFY(!late->errorString().isEmpty());
    }

    void scalesToTheRequestedSize_data()
    {
        QTest::addColumn<QSize>("requested");
        QTest::addColumn<QSize>("expected");

        QTest::newRow("none") << QSize() << QSize(8, 4);
        QTest::newRow("the same") << QSize(8, 4) << QSize(8, 4);
        QTest::newRow("other proportions") << QSize(3, 9) << QSize(3, 9);
        QTest::newRow("width alone") << QSize(3, -1) << QSize(8, 4);
        QTest::newRow("no length at all") << QSize(0, 0) << QSize(8, 4);
        QTest::newRow("too large") << QSize(100000, 100000) << QSize();
        QTest::newRow("largest") << QSize(2147483647, 2147483647) << QSize();
    }

    void scalesToTheRequestedSize()
    {
        QFETCH(QSize, requested);
        QFETCH(QSize, expected);

        const auto read = PictureReader::read(png(8, 4), requested);

        QCOMPARE(read.image.isNull() ? QSize() : read.image.size(), expected);
        QCOMPARE(read.error.isEmpty(), expected.isValid());
    }

    void doesNotDecodeWhatIsTooLarge()
    {
        const auto bytes = hugePng();
        QVERIFY(bytes.size() < 200 * 1024);

        const auto read = PictureReader::read(bytes, {});

        QVERIFY(read.image.isNull());
        QCOMPARE(read.error, QString("The picture is too large"));
        const auto embedded = "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                              "width='10' height='10'><image width='10' height='10' "
                              "xlink:href='data:image/png;base64,"
            + bytes.toBase64() + "'/></svg>";
        QVERIFY(PictureReader::read(embedded, {}).image.isNull());
    }

    void readsDrawings_data()
    {
        QTest::addColumn<QByteArray>("drawing");
        QTest::addColumn<QSize>("expected");
        const QByteArray head("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' ");
        const QByteArray embedded("xlink:href='data:image/png;base64," + png(2, 2).toBase64() + "'/></svg>");

        QTest::newRow("plain") << head + "width='20' height='10'><rect width='5' height='5'/></svg>" << QSize(20, 10);
        QTest::newRow("picture within") << head + "width='20' height='10'><image width='2' height='2' " + embedded
                                        << QSize(20, 10);
        QTest::newRow("file of this machine")
            << head + "width='20' height='10'><image width='2' height='2' xlink:href='/etc/hostname'/></svg>"
            << QSize();
        QTest::newRow("too large") << head + "width='20000' height='20000'></svg>" << QSize();
        QTest::newRow("broken") << head + "width='20' height='10'><rect" << QSize();
    }

    void readsDrawings()
    {
        QFETCH(QByteArray, drawing);
        allowMessages("Cannot read SVG|svg");

        const auto read = PictureReader::read(drawing, {});

        QTEST(read.image.isNull() ? QSize() : read.image.size(), "expected");
        QCOMPARE(read.error.isEmpty(), !read.image.isNull());
    }

    void showsInAnImageOfAScreen()
    {
        PictureLink link;
        QQmlEngine engine;
        engine.addImageProvider("image_layer", new QuickImageLayerProvider(link));
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15\nImage { cache: false }", QUrl("qrc:/test.qml"));
        const std::unique_ptr<QObject> image(component.create());
        QVERIFY2(image, qPrintable(component.errorString()));

        image->setProperty("source", QString("image://image_layer/" + text(1)));
        QTRY_COMPARE(link.asked.size(), std::size_t(1));
        QVERIFY(link.isOnOwnThread);
        QCOMPARE(link.asked[0].uid, uid(1));
        link.asked[0].done(picture(png(7, 5)));
        QTRY_COMPARE(image->property("status").toInt(), 1); // ready
        QCOMPARE(image->property("implicitWidth").toInt(), 7);

        // A failure lets the tile ask again.
        expectMessage(QtWarningMsg, "The server has not sent the picture");
        image->setProperty("source", QString("image://image_layer/" + text(2)));
        QTRY_COMPARE(link.asked.size(), std::size_t(2));
        link.asked[1].failed();
        QTRY_COMPARE(image->property("status").toInt(), 3); // error
        image->setProperty("source", QString());
        image->setProperty("source", QString("image://image_layer/" + text(2)));
        QTRY_COMPARE(link.asked.size(), std::size_t(3));
        link.asked[2].done(picture(png(3, 2)));
        QTRY_COMPARE(image->property("status").toInt(), 1);
        QCOMPARE(image->property("implicitWidth").toInt(), 3);
    }

    void anEngineMayGoWhileRequestsAreOut()
    {
        PictureLink link;
        {
            QQmlEngine engine;
            engine.addImageProvider("image_layer", new QuickImageLayerProvider(link));
            QQmlComponent component(&engine);
            component.setData(QByteArray("import QtQuick 2.15\nImage { source: 'image://image_layer/")
                                  + text(1).toUtf8() + "' }",
                              QUrl("qrc:/test.qml"));
            const std::unique_ptr<QObject> image(component.create());
            QVERIFY2(image, qPrintable(component.errorString()));
            QTRY_COMPARE(link.asked.size(), std::size_t(1));
        }

        link.asked[0].done(picture(png(7, 5)));
        link.asked[0].failed();
        link.enter(FakeCommunicator::Connecting);
        QCOMPARE(link.asked.size(), std::size_t(1));
    }
};

ONDIRA_TEST(QuickImageLayerProviderTest)
#include "QuickImageLayerProviderTest.moc"
