#include "ORV.h"
#include "ORVGuiUtil.h"
#include "testsupport.h"

namespace {

// An image of 3 x 2 pixels of four bytes each, numbered from 0, in the given format.
QImage numberedImage(QImage::Format format)
{
    QImage image(3, 2, format);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 12; ++x)
            image.scanLine(y)[x] = uchar(12 * y + x);
    }
    return image;
}

QImage indexedImage(const QVector<QRgb>& colors)
{
    QImage image(2, 2, QImage::Format_Indexed8);
    image.setColorTable(colors);
    image.fill(0);
    return image;
}

QImage blankMono(int width)
{
    QImage image(width, 1, QImage::Format_Mono);
    image.fill(0);
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

const QVector<QRgb> twoColors = QVector<QRgb>() << qRgb(0, 0, 0) << qRgb(255, 0, 0);
const QVector<QRgb> twoOtherColors = QVector<QRgb>() << qRgb(0, 0, 255) << qRgb(255, 0, 0);
const QVector<QRgb> threeColors = QVector<QRgb>(twoColors) << qRgb(9, 9, 9);

} // namespace

class TestGuiUtil : public QObject {
    Q_OBJECT

private slots:
    void rtfMimeTypesInOrder()
    {
        const QStringList types = ORV::rtfMimeTypes();
        QCOMPARE(QStringList(types.mid(0, 3)),
                 QStringList() << "text/rtf"_s
                               << "application/rtf"_s
                               << "text/richtext"_s);
#if !defined(Q_OS_WIN) && !defined(Q_OS_MAC)
        QCOMPARE(types.size(), 3);
#else
        QCOMPARE(types.size(), 4);
#endif
    }

    void ownMimeType()
    {
        QCOMPARE(QByteArray(ORV::OrvellineMarkupRtfMimeType), "application/x-orvelline-markup-rtf"_b);
    }

    void resourceIdOfNullImageIsEmpty()
    {
        QCOMPARE(ORVGuiUtil::resourceId(QImage()), QString());
    }

    void resourceIdIsAbsoluteUrl()
    {
        const QString id = ORVGuiUtil::resourceId(photo());
        const QUrl url(id);
        QVERIFY(url.isValid());
        QVERIFY(!url.isRelative());
        QVERIFY(!url.isLocalFile());
        QCOMPARE(url.toString(), id);
    }

    // Two buffers that show the same pixels and differ in what is none.
    ORV_ROWS(resourceIdIgnoresBytesOutsideOfPixels)
    {
        const Rows add([](int format, int width, const QByteArray& first, const QByteArray& second) {
            const QImage image(reinterpret_cast<const uchar*>(first.constData()), width, 2, first.size() / 2,
                               QImage::Format(format));
            const QImage other(reinterpret_cast<const uchar*>(second.constData()), width, 2,
                               second.size() / 2, QImage::Format(format));
            QVERIFY(first != second);
            QCOMPARE(ORVGuiUtil::resourceId(other), ORVGuiUtil::resourceId(image));
        });
        const QByteArray pixel("\x10\x20\x30", 3);
        add("padding of a scanline", int(QImage::Format_RGB888), 1, pixel + '\x00' + pixel + '\x00',
            pixel + '\x7f' + pixel + '\x01');
        add("bits beyond the width, high bit first", int(QImage::Format_Mono), 3,
            QByteArray("\xa0\0\0\0\x40\0\0\0", 8), QByteArray("\xbf\1\1\1\x5f\1\1\1", 8));
        add("bits beyond the width, low bit first", int(QImage::Format_MonoLSB), 3,
            QByteArray("\x05\0\0\0\x02\0\0\0", 8), QByteArray("\xfd\1\1\1\xfa\1\1\1", 8));
        const quint32 pixels[] = {0xff102030u, 0xff405060u};
        const quint32 otherPixels[] = {0x00102030u, 0x77405060u};
        add("unused byte of RGB32", int(QImage::Format_RGB32), 1,
            QByteArray(reinterpret_cast<const char*>(pixels), 8),
            QByteArray(reinterpret_cast<const char*>(otherPixels), 8));
    }

    void resourceIdTellsImagesApart()
    {
        QList<QImage> images;
        images << numberedImage(QImage::Format_ARGB32) << numberedImage(QImage::Format_ARGB32_Premultiplied)
               << numberedImage(QImage::Format_RGB32) << indexedImage(twoColors)
               << indexedImage(twoOtherColors) << indexedImage(threeColors);
        // The same bytes as two rows of three, three rows of two, and one row of six pixels.
        const QByteArray bytes(24, '\x55');
        const uchar* data = reinterpret_cast<const uchar*>(bytes.constData());
        images << QImage(data, 3, 2, 12, QImage::Format_ARGB32)
               << QImage(data, 2, 3, 8, QImage::Format_ARGB32)
               << QImage(data, 6, 1, 24, QImage::Format_ARGB32);

        // The same byte as rows of three and of four pixels.
        images << blankMono(3) << blankMono(4);

        QSet<QString> ids;
        for (const QImage& image : images)
            ids.insert(ORVGuiUtil::resourceId(image));
        QCOMPARE(ids.size(), images.size());
    }

    ORV_ROWS(resourceIdSeesEveryPixel)
    {
        const Rows add([](int format) {
            QImage blank(11, 3, QImage::Format(format));
            blank.setColorTable(blank.depth() > 8 ? QVector<QRgb>() : twoColors);
            blank.fill(0);
            QSet<QString> ids;
            ids.insert(ORVGuiUtil::resourceId(blank));
            for (int y = 0; y < blank.height(); ++y) {
                for (int x = 0; x < blank.width(); ++x) {
                    QImage changed = blank;
                    changed.setPixel(x, y, blank.depth() > 8 ? qRgb(255, 0, 0) : 1);
                    ids.insert(ORVGuiUtil::resourceId(changed));
                }
            }
            QCOMPARE(ids.size(), 1 + 11 * 3);
        });
        add("mono, high bit first", int(QImage::Format_Mono));
        add("mono, low bit first", int(QImage::Format_MonoLSB));
        add("indexed", int(QImage::Format_Indexed8));
        add("RGB32", int(QImage::Format_RGB32));
        add("RGB888", int(QImage::Format_RGB888));
        add("ARGB32", int(QImage::Format_ARGB32));
    }

    void resourceIdDoesNotDependOnMetadata()
    {
        QImage image = photo();
        const QString id = ORVGuiUtil::resourceId(image);
        image.setDotsPerMeterX(1234);
        image.setText("Author"_s, "somebody"_s);
        image.setDevicePixelRatio(2);
        QCOMPARE(ORVGuiUtil::resourceId(image), id);
    }

    void pngBytesHoldThePixels()
    {
        const QImage image = photo();
        const QByteArray bytes = ORVGuiUtil::toByteArray(image, "PNG", -1);
        QVERIFY(bytes.startsWith("\x89PNG\r\n\x1a\n"));
        QCOMPARE(QImage::fromData(bytes).convertToFormat(QImage::Format_RGB32), image);
    }

    /*! Three pixels take three bits of a byte; the other five are stray. */
    ORV_ROWS(bytesDoNotDependOnWhatIsNoPixel)
    {
        const Rows add([](int format, int strayBits) {
            QImage clean(3, 2, QImage::Format(format));
            clean.setColorTable(QVector<QRgb>() << qRgb(0, 0, 0) << qRgb(255, 255, 255));
            clean.fill(0);
            QImage stray = clean.copy();
            for (int y = 0; y < stray.height(); ++y)
                stray.scanLine(y)[0] |= uchar(strayBits);
            QCOMPARE(stray, clean);
            const QByteArray png = ORVGuiUtil::toByteArray(clean, "PNG", -1);
            QCOMPARE(ORVGuiUtil::toByteArray(stray, "PNG", -1), png);
            QCOMPARE(QImage::fromData(png).convertToFormat(QImage::Format_RGB32),
                     clean.convertToFormat(QImage::Format_RGB32));
            QCOMPARE(stray.constScanLine(0)[0], uchar(strayBits));
        });
        add("mono, high bit first", int(QImage::Format_Mono), 0x1f);
        add("mono, low bit first", int(QImage::Format_MonoLSB), 0xf8);
    }

    ORV_ROWS(bytesOfWhatCannotBeWrittenAreEmpty)
    {
        const Rows add([](const QImage& image, const QByteArray& format) {
            QCOMPARE(ORVGuiUtil::toByteArray(image, format.isNull() ? nullptr : format.constData(), -1),
                     QByteArray());
        });
        add("null image", QImage(), "PNG");
        add("unknown format", photo(), "NOSUCHFORMAT");
        add("no format", photo(), QByteArray());
    }

    void qualityIsUsedAndClamped()
    {
        const QByteArray coarse = ORVGuiUtil::toByteArray(photo(), "JPEG", 5);
        const QByteArray fine = ORVGuiUtil::toByteArray(photo(), "JPEG", 100);
        const QByteArray usual = ORVGuiUtil::toByteArray(photo(), "JPEG", -1);
        QVERIFY(coarse.startsWith("\xff\xd8"));
        QVERIFY(coarse.size() < usual.size());
        QVERIFY(usual.size() < fine.size());
        QCOMPARE(ORVGuiUtil::toByteArray(photo(), "JPEG", 1000), fine);
        QCOMPARE(ORVGuiUtil::toByteArray(photo(), "JPEG", -1000), usual);
    }
};

ORV_TEST("guiutil", TestGuiUtil, QCoreApplication)
#include "guiutil.moc"
