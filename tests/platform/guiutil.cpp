#include "ORV.h"
#include "ORVGuiUtil.h"
#include "testsupport.h"

using namespace ORVGuiUtil;

namespace {

const QVector<QRgb> twoColors = {qRgb(0, 0, 0), qRgb(255, 0, 0)};
const QVector<QRgb> twoOtherColors = {qRgb(0, 0, 255), qRgb(255, 0, 0)};
const QVector<QRgb> threeColors = {qRgb(0, 0, 0), qRgb(255, 0, 0), qRgb(9, 9, 9)};

/*! An image of pixels in \a bytes, whose lines are as long as Qt makes them. */
QImage imageOf(const QByteArray& bytes, int width, int height, QImage::Format format)
{
    QImage image(width, height, format);
    if (image.depth() == 1)
        image.setColorTable(twoColors);
    memcpy(image.bits(), bytes.constData(), size_t(bytes.size()));
    return image;
}

QImage indexedImage(const QVector<QRgb>& colors)
{
    QImage image = imageOf(QByteArray(8, '\0'), 2, 2, QImage::Format_Indexed8);
    image.setColorTable(colors);
    return image;
}

// A gradient with some noise, so that the quality of a JPEG shows in its size.
QImage photo()
{
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, qRgb(x * 4, y * 4, (x * 37 + y * 91) % 256));
    }
    return image;
}

} // namespace

class TestGuiUtil : public QObject {
    Q_OBJECT

private slots:
    void mimeTypes()
    {
        const QStringList types = ORV::rtfMimeTypes();
        QCOMPARE(types.mid(0, 3), (QStringList{"text/rtf"_s, "application/rtf"_s, "text/richtext"_s}));
#if !defined(Q_OS_WIN) && !defined(Q_OS_MAC)
        QCOMPARE(types.size(), 3);
#else
        QCOMPARE(types.size(), 4);
#endif
        QCOMPARE(QByteArray(ORV::OrvellineMarkupRtfMimeType), "application/x-orvelline-markup-rtf"_b);
    }

    void resourceIdOfNullImageIsEmpty()
    {
        QCOMPARE(resourceId(QImage()), QString());
    }

    void resourceIdIsAbsoluteUrl()
    {
        const QUrl url(resourceId(photo()));
        QVERIFY(url.isValid());
        QVERIFY(!url.isRelative());
        QVERIFY(!url.isLocalFile());
        QCOMPARE(url.toString(), resourceId(photo()));
    }

    // Two buffers that show the same two rows of pixels and differ in what is none.
    ORV_ROWS(bytesOutsideOfPixelsAreIgnored)
    {
        const Rows add(
            [](QImage::Format format, int width, const QByteArray& first, const QByteArray& second) {
                const QImage image = imageOf(first, width, 2, format);
                const QImage other = imageOf(second, width, 2, format);
                QVERIFY(first != second);
                QCOMPARE(image, other);
                QCOMPARE(resourceId(other), resourceId(image));
                const QByteArray png = toByteArray(image, "PNG", -1);
                QCOMPARE(toByteArray(other, "PNG", -1), png);
                QCOMPARE(QImage::fromData(png).convertToFormat(QImage::Format_RGB32),
                         image.convertToFormat(QImage::Format_RGB32));
                QCOMPARE(QByteArray(reinterpret_cast<const char*>(other.constBits()), second.size()), second);
            });
        add("padding of a scanline", QImage::Format_RGB888, 1, "\x10\x20\x30\0\x10\x20\x30\0"_b,
            "\x10\x20\x30\x7f\x10\x20\x30\1"_b);
        add("bits beyond the width, high bit first", QImage::Format_Mono, 3, "\xa0\0\0\0\x40\0\0\0"_b,
            "\xbf\1\1\1\x5f\1\1\1"_b);
        add("bits beyond the width, low bit first", QImage::Format_MonoLSB, 3, "\x05\0\0\0\x02\0\0\0"_b,
            "\xfd\1\1\1\xfa\1\1\1"_b);
        const quint32 pixels[] = {0xff102030u, 0xff405060u};
        const quint32 otherPixels[] = {0x00102030u, 0x77405060u};
        add("unused byte of RGB32", QImage::Format_RGB32, 1,
            QByteArray(reinterpret_cast<const char*>(pixels), 8),
            QByteArray(reinterpret_cast<const char*>(otherPixels), 8));
    }

    void resourceIdTellsImagesApart()
    {
        QByteArray numbers;
        for (int i = 0; i < 24; ++i)
            numbers += char(i);
        QList<QImage> images = {indexedImage(twoColors), indexedImage(twoOtherColors),
                                indexedImage(threeColors)};
        for (const QImage::Format format :
             {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32})
            images << imageOf(numbers, 3, 2, format);
        // The same bytes as two rows of three, three rows of two, and one row of six pixels.
        const QByteArray bytes(24, '\x55');
        for (const QSize& size : {QSize(3, 2), QSize(2, 3), QSize(6, 1)})
            images << imageOf(bytes, size.width(), size.height(), QImage::Format_ARGB32);
        // The same byte as rows of three and of four pixels.
        for (const int width : {3, 4})
            images << imageOf(QByteArray(4, '\0'), width, 1, QImage::Format_Mono);

        QSet<QString> ids;
        for (const QImage& image : images)
            ids.insert(resourceId(image));
        QCOMPARE(ids.size(), images.size());
    }

    ORV_ROWS(resourceIdSeesEveryPixel)
    {
        const Rows add([](QImage::Format format) {
            QImage blank(11, 3, format);
            blank.setColorTable(blank.depth() > 8 ? QVector<QRgb>() : twoColors);
            blank.fill(0);
            QSet<QString> ids = {resourceId(blank)};
            for (int i = 0; i < 11 * 3; ++i) {
                QImage changed = blank;
                changed.setPixel(i % 11, i / 11, blank.depth() > 8 ? qRgb(255, 0, 0) : 1);
                ids.insert(resourceId(changed));
            }
            QCOMPARE(ids.size(), 1 + 11 * 3);
        });
        add("mono, high bit first", QImage::Format_Mono);
        add("mono, low bit first", QImage::Format_MonoLSB);
        add("indexed", QImage::Format_Indexed8);
        add("RGB32", QImage::Format_RGB32);
        add("RGB888", QImage::Format_RGB888);
        add("ARGB32", QImage::Format_ARGB32);
    }

    void resourceIdDoesNotDependOnMetadata()
    {
        QImage image = photo();
        const QString id = resourceId(image);
        image.setDotsPerMeterX(1234);
        image.setText("Author"_s, "somebody"_s);
        image.setDevicePixelRatio(2);
        QCOMPARE(resourceId(image), id);
    }

    void pngBytesHoldThePixels()
    {
        const QImage image = photo();
        const QByteArray bytes = toByteArray(image, "PNG", -1);
        QVERIFY(bytes.startsWith("\x89PNG\r\n\x1a\n"));
        QCOMPARE(QImage::fromData(bytes).convertToFormat(QImage::Format_RGB32), image);
    }

    void bytesOfWhatCannotBeWrittenAreEmpty()
    {
        QCOMPARE(toByteArray(QImage(), "PNG", -1), QByteArray());
        QCOMPARE(toByteArray(photo(), "NOSUCHFORMAT", -1), QByteArray());
        QCOMPARE(toByteArray(photo(), nullptr, -1), QByteArray());
    }

    void qualityIsUsedAndClamped()
    {
        const QByteArray coarse = toByteArray(photo(), "JPEG", 5);
        const QByteArray fine = toByteArray(photo(), "JPEG", 100);
        const QByteArray usual = toByteArray(photo(), "JPEG", -1);
        QVERIFY(coarse.startsWith("\xff\xd8"));
        QVERIFY(coarse.size() < usual.size());
        QVERIFY(usual.size() < fine.size());
        QCOMPARE(toByteArray(photo(), "JPEG", 1000), fine);
        QCOMPARE(toByteArray(photo(), "JPEG", -1000), usual);
    }
};

ORV_TEST("guiutil", TestGuiUtil, QCoreApplication)
#include "guiutil.moc"
