#include "interchangehelpers.h"
#include "tabletesthelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! Four columns of one colour each, three pixels high. */
QImage stripes()
{
    QImage image(4, 3, QImage::Format_RGB32);
    const QRgb colors[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(255, 255, 255)};
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            image.setPixel(x, y, colors[x]);
    }
    return image;
}

QByteArray fileOf(const QImage& image, const char* format)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return data;
}

QByteArray digits(const char* format)
{
    return fileOf(stripes(), format).toHex();
}

/*! A bitmap as Windows has it in memory: the file without its first 14 bytes. */
QByteArray bitmap()
{
    return fileOf(stripes(), "BMP").mid(14);
}

/*! A number of two bytes, as digits. */
QByteArray word(int number)
{
    return QByteArray(1, char(number)).toHex() + QByteArray(1, char(number >> 8)).toHex();
}

/*!
    A device-independent bitmap of 4 by \a height pixels with \a rows behind, for at most 8 bits, the colours
    red, green, blue and white.
*/
QByteArray bitmap(int bits, const QByteArray& rows, int height = 1)
{
    const QByteArray colors = "0000ff0000ff0000ff000000ffffff00";
    return "\\dibitmap0 2800000004000000" + word(height) + "00000100" + word(bits) + QByteArray(48, '0')
        + (bits > 8 ? QByteArray() : colors.leftJustified(8 << bits, '0', true)) + rows;
}

/*! The same with the header of the oldest kind, of one row. */
QByteArray oldBitmap(int bits, const QByteArray& row)
{
    const QByteArray colors = "0000ff00ff00ff0000ffffff";
    return "\\dibitmap0 0c000000040001000100" + word(bits)
        + (bits > 8 ? QByteArray() : colors.leftJustified(6 << bits, '0', true)) + row;
}

QByteArray binary(const QByteArray& data)
{
    return "\\bin" + QByteArray::number(data.size()) + ' ' + data;
}

/*! The colours of the first row: "rgbw" for stripes(). */
QString colorsOf(const QImage& image)
{
    QString colors;
    for (int x = 0; x < image.width(); ++x) {
        // Colours of 16 bits have five each.
        const QRgb color = image.pixel(x, 0) & 0xF8F8F8;
        colors += QLatin1Char(color == 0xF80000       ? 'r'
                                  : color == 0x00F800 ? 'g'
                                  : color == 0x0000F8 ? 'b'
                                  : color == 0xF8F8F8 ? 'w'
                                  : color == 0        ? 'k'
                                                      : '?');
    }
    return colors;
}

/*! The pictures of \a body, each with its size and the size in which it is shown: "rgbw 4x3 4x3". */
QString picturesOf(const QByteArray& body)
{
    const Reading reading = importBody(body);
    QStringList pictures;
    for (const QTextImageFormat& format : reading.images()) {
        const QImage image = reading.picture(format);
        pictures << "%1 %2x%3 %4x%5"_s.arg(colorsOf(image))
                        .arg(image.width())
                        .arg(image.height())
                        .arg(format.width())
                        .arg(format.height());
    }
    return pictures.join("; "_s);
}

} // namespace

/*! Pictures as other programs write them. */
class TestInterchangePictures : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(pictures)
    {
        const Rows add(
            [](const QByteArray& body, const QString& pictures) { QCOMPARE(picturesOf(body), pictures); });
        const QByteArray png = digits("PNG");
        const char* const whole = "rgbw 4x3 4x3";
        const char* const sized = "rgbw 4x3 40x30";
        const QByteArray goal = "\\picwgoal600\\pichgoal450 ";

        // Kind, size and data in any order.
        add("size before the kind", "{\\pict" + goal + "\\pngblip " + png + "}", sized);
        add("kind before the size", "{\\pict\\pngblip" + goal + png + "}", sized);
        add("size behind the data", "{\\pict\\pngblip " + png + goal + "}", sized);
        add("size between the data",
            "{\\pict\\pngblip " + png.left(20) + "\\picwgoal600 " + png.mid(20) + "\\pichgoal450}", sized);
        add("kind behind the data", "{\\pict " + png + "\\pngblip}", whole);
        add("no kind", "{\\pict " + png + "}", whole);
        add("another kind", "{\\pict\\jpegblip " + png + "}", whole);
        add("odd number of digits between words",
            "{\\pict\\pngblip " + png.left(21) + "\\picscalex100 " + png.mid(21) + "}", whole);
        add("line ends and blanks",
            "{\\pict\\pngblip\n" + png.left(7) + "\r\n" + png.mid(7, 6) + " " + png.mid(13) + "\n}", whole);
        add("one digit too many", "{\\pict\\pngblip " + png + "0}", whole);
        add("identifier in a group", "{\\pict{\\*\\blipuid 0123456789abcdef}\\pngblip " + png + "}", whole);
        add("group around the data", "{\\pict\\pngblip{" + png + "}}", whole);

        // Raw bytes.
        add("raw data", "{\\pict\\pngblip" + binary(fileOf(stripes(), "PNG")) + "}", whole);
        add("raw data, size behind them", "{\\pict\\pngblip" + binary(fileOf(stripes(), "PNG")) + goal + "}",
            sized);
        add("raw data that are cut off", "{\\pict\\pngblip\\bin2147483647 " + fileOf(stripes(), "PNG"),
            whole);

        // Bitmaps.
        add("bitmap", "{\\pict\\dibitmap0 " + bitmap().toHex() + "}", whole);
        add("bitmap of raw data", "{\\pict\\dibitmap0" + binary(bitmap()) + "}", whole);
        add("1 bit", "{\\pict" + bitmap(1, "50000000") + "}", "rgrg 4x1 4x1");
        add("4 bits", "{\\pict" + bitmap(4, "01230000") + "}", "rgbw 4x1 4x1");
        add("8 bits", "{\\pict" + bitmap(8, "00010203") + "}", "rgbw 4x1 4x1");
        add("16 bits", "{\\pict" + bitmap(16, "007ce0031f00ff7f") + "}", "rgbw 4x1 4x1");
        add("32 bits", "{\\pict" + bitmap(32, "0000ff0000ff0000ff000000ffffff00") + "}", "rgbw 4x1 4x1");
        add("1 bit, oldest header", "{\\pict" + oldBitmap(1, "50000000") + "}", "rgrg 4x1 4x1");
        add("8 bits, oldest header", "{\\pict" + oldBitmap(8, "00010203") + "}", "rgbw 4x1 4x1");
        add("24 bits, oldest header", "{\\pict" + oldBitmap(24, "0000ff00ff00ff0000ffffff") + "}",
            "rgbw 4x1 4x1");
        add("bitmap without its upper half", "{\\pict" + bitmap(32, QByteArray(64, 'f'), 4) + "}",
            "kkkk 4x4 4x4");
        add("bitmap of which most is missing", "{\\pict" + bitmap(32, QByteArray(64, 'f'), 400) + "}", "");
        add("colours and masks stated",
            "{\\pict\\dibitmap0 2800000004000000010000000100100003000000" + QByteArray(40, '0')
                + "007c0000e00300001f000000"
                  "007ce0031f00ff7f}",
            "rgbw 4x1 4x1");
        add("fewer colours than there can be",
            "{\\pict\\dibitmap0 28000000040000000100000001000800" + QByteArray(32, '0') + "0400000000000000"
                + "0000ff0000ff0000ff000000ffffff00"
                  "00010203}",
            "rgbw 4x1 4x1");
        add("runs of pixels",
            "{\\pict\\dibitmap0 "
            "28000000040000000100000001000800010000000800000000000000000000000400000000000000"
            "0000ff0000ff0000ff000000ffffff00"
            "02000201"
            "0001}",
            "rrgg 4x1 4x1");
        add("bitmap of three bytes", "{\\pict\\dibitmap0 280000}", "");
        add("bitmap without a width",
            "{\\pict\\dibitmap0 2800000000000000010000000100200000000000" + QByteArray(40, '0') + "0000ff00}",
            "");
        add("bitmap of too many pixels",
            "{\\pict\\dibitmap0 28000000ffffff7fffffff7f0100200000000000" + QByteArray(40, '0') + "0000ff00}",
            "");
        add("bitmap of a header alone",
            "{\\pict\\dibitmap0 2800000004000000010000000100200000000000" + QByteArray(40, '0') + "}", "");
        add("bitmap with a file header", "{\\pict\\dibitmap0 " + digits("BMP") + "}", whole);
        add("bitmap of a device, 16 bits",
            "{\\pict\\wbitmap0\\wbmbitspixel16\\wbmplanes1\\wbmwidthbytes4\\picw2\\pich1 007ce003}",
            "rg 2x1 2x1");
        add("bitmap of a device without its lower half",
            "{\\pict\\wbitmap0\\wbmbitspixel16\\wbmplanes1\\wbmwidthbytes4\\picw2\\pich2 007ce003}",
            "rg 2x2 2x2");
        add("bitmap of a device, 24 bits",
            "{\\pict\\wbitmap0\\wbmbitspixel24\\wbmplanes1\\wbmwidthbytes6\\picw2\\pich1 0000ff00ff00}",
            "rg 2x1 2x1");
        add("bitmap of a device, 1 bit",
            "{\\pict\\wbitmap0\\wbmbitspixel1\\wbmplanes1\\wbmwidthbytes2\\picw4\\pich2 50008000}",
            "kwkw 4x2 4x2");
        add("bitmap of a device, rows of the least length",
            "{\\pict\\wbitmap0\\wbmbitspixel24\\wbmplanes1\\picw2\\pich1 0000ff00ff00}", "rg 2x1 2x1");
        for (const QByteArray words :
             {"\\wbmbitspixel24\\wbmplanes2\\picw2\\pich1", "\\wbmbitspixel4\\wbmplanes1\\picw2\\pich1",
              "\\wbmbitspixel24\\wbmplanes1\\wbmwidthbytes4\\picw2\\pich1",
              "\\wbmbitspixel24\\wbmplanes1\\picw2\\pich3",
              "\\wbmbitspixel24\\wbmplanes1\\picw99999\\pich99999"})
            add("bitmap of a device that cannot be: " + words, "{\\pict\\wbitmap0" + words + " 0000ff00ff00}",
                "");
        add("bitmap of a device without its size", "{\\pict\\wbitmap0\\wbmbitspixel24 0000ff}", "");
        add("bitmap that is cut off", "{\\pict\\dibitmap0 " + bitmap().left(20).toHex() + "}", "");

        // A second form for older programs.
        const QByteArray first = "{\\*\\shppict{\\pict\\pngblip " + png + "}}";
        const QByteArray older = "{\\nonshppict{\\pict\\dibitmap0 " + bitmap().toHex() + "}}";
        add("second form", first + older, whole);
        add("second form of two pictures", first + older + first + older, "rgbw 4x3 4x3; rgbw 4x3 4x3");
        add("first form is no picture", "{\\*\\shppict{\\pict\\pngblip 00}}" + older, whole);
        add("second form alone", older, whole);
        add("two pictures in a group", "{{\\pict\\pngblip " + png + "}{\\pict\\pngblip " + png + "}}",
            "rgbw 4x3 4x3; rgbw 4x3 4x3");

        // Drawn objects.
        const auto shape = [&](const QByteArray& property, const QByteArray& result) {
            return "{\\shp{\\*\\shpinst\\shpleft10{\\sp{\\sn wzName}{\\sv A}}{\\sp{\\sn " + property
                + "}{\\sv {\\pict\\pngblip " + png + "}}}}{\\shprslt " + result + "}}";
        };
        const QByteArray metafile = "{\\pict\\wmetafile8 00}";
        add("floating picture", shape("pib", metafile), whole);
        add("floating picture and its older form", shape("pib", older), whole);
        add("floating picture without a result",
            "{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict\\pngblip " + png + "}}}}}", whole);
        add("two floating pictures", shape("pib", older) + shape("pib", older), "rgbw 4x3 4x3; rgbw 4x3 4x3");
        add("floating picture and a second form", shape("pib", "") + older, "rgbw 4x3 4x3; rgbw 4x3 4x3");
        const auto box = [&](const QByteArray& words, const QByteArray& size) {
            return "{\\shp{\\*\\shpinst" + words + "{\\sp{\\sn pib}{\\sv {\\pict\\pngblip" + size + " " + png
                + "}}}}}";
        };
        add("floating picture in its box",
            box("\\shpleft-10\\shptop30\\shpright590\\shpbottom480",
                "\\picwgoal90\\pichgoal90\\picscalex50\\picscaley50"),
            sized);
        add("floating picture in an empty box",
            box("\\shpleft590\\shptop30\\shpright590\\shpbottom480", goal), sized);
        for (const QByteArray words : {"\\shpbottom480", "\\shpright600", "\\shpright600\\shpbottom99999",
                                       "\\shpright99999\\shpbottom480"})
            add("floating picture in a box that cannot be: " + words, box(words, goal), sized);
        add("floating picture without a box, behind one with a box",
            box("\\shpright150\\shpbottom150", goal) + box("", goal), "rgbw 4x3 10x10; rgbw 4x3 40x30");
        add("pattern of an object", shape("fillBlip", ""), "");
        add("pattern of an object, and its older form", shape("fillBlip", older), whole);
        add("pictures in a group of objects",
            "{\\shpgrp{\\*\\shpinst{\\sp{\\sn groupLeft}{\\sv 0}}" + shape("pib", "") + shape("pib", "")
                + "}}",
            "rgbw 4x3 4x3; rgbw 4x3 4x3");

        add("two pictures one behind the other", "{\\pict\\pngblip " + png + "\\pict\\pngblip " + png + "}",
            "rgbw 4x3 4x3; rgbw 4x3 4x3");
        add("second form of a hidden picture", "{\\v" + first + older + "}", "");
        add("in a skipped group", "{\\*\\unknown{\\pict\\pngblip " + png + "}}", "");

        // Cropping, in twips of the size in which the whole picture is shown.
        add("cropped on the left", "{\\pict\\pngblip\\picwgoal600\\pichgoal450\\piccropl150 " + png + "}",
            "gbw 3x3 30x30");
        add("cropped on all sides",
            "{\\pict\\pngblip\\picwgoal600\\pichgoal450\\piccropl150\\piccropr300\\piccropt150\\piccropb150 "
                + png + "}",
            "g 1x1 10x10");
        add("cropped and scaled",
            "{\\pict\\pngblip\\picwgoal600\\pichgoal450\\picscalex50\\picscaley200\\piccropl300 " + png + "}",
            "bw 2x3 10x60");
        add("cropped on one side, with room on the other",
            "{\\pict\\pngblip\\piccropl150\\piccropr-150" + goal + png + "}", "gbw 3x3 30x30");
        add("cropped without a size", "{\\pict\\pngblip\\piccropr15 " + png + "}", "rgb 3x3 3x3");
        add("cropped to nothing", "{\\pict\\pngblip\\picwgoal600\\pichgoal450\\piccropl600 " + png + "}", "");
        add("cropped by more than numbers can be",
            "{\\pict\\pngblip\\piccropl2147483647\\piccropr2147483647 " + png + "}", "");
        add("huge cropping of a huge picture",
            "{\\pict\\pngblip\\picwgoal2147483647\\pichgoal2147483647\\piccropl1600000000\\piccropt2147483647"
            " " + png
                + "}",
            "");
        add("negative cropping", "{\\pict\\pngblip\\piccropl-150 " + png + "}", whole);

        add("hidden", "{\\v{\\pict\\pngblip " + png + "}}", "");
    }

    ORV_ROWS(picturesInTables)
    {
        const Rows add([](const QByteArray& before, const QByteArray& after, const QString& content) {
            const Reading reading = importBody(before + "{\\pict\\pngblip " + digits("PNG") + "}" + after);
            QCOMPARE(contentOf(*reading.document), content);
            QCOMPARE(reading.picture(reading.images().value(0)).size(), stripes().size());
        });
        add("in a cell", "\\trowd\\cellx2000 A", "\\cell\\row\\pard B", "|{1: A\ufffc}|B");
        add("in an inner cell", "\\trowd\\cellx2000\\itap2 ", "\\nestcell\\nestrow A\\cell\\row",
            "|{1: |{1: \ufffc}|A}|");
        add("in a cell without a row", "A\\par ", "\\cell\\row\\pard B", "A|{1: \ufffc}|B");
        add("behind the last cell", "\\trowd\\cellx2000 A\\cell ", "\\row\\pard B", "|{2: A, \ufffc}|B");
        add("in a paragraph of no row", "\\pard\\intbl ", "\\par\\pard B", "\ufffc|B");
    }

    void textAroundAPicture()
    {
        const QByteArray png = digits("PNG");
        QCOMPARE(importedText("a{\\pict\\pngblip " + png + "}b"),
                 "a\ufffc"
                 "b"_s);
        QCOMPARE(importedText("{\\pict\\pngblip " + png.left(20) + "\\\n" + png.mid(20) + "}"), "\ufffc"_s);
        QCOMPARE(importedText(
                     "a{\\shp{\\*\\shpinst 1{\\sp{\\sn wzName}{\\sv 2}}{\\sp{\\sn pib}{\\sv {\\pict\\pngblip "
                     + png + "}}}}{\\shprslt 3\\par}}b"),
                 "a\ufffc"
                 "b"_s);
    }
};

ORV_TEST("interchange_pictures", TestInterchangePictures, QGuiApplication)
#include "pictures.moc"
