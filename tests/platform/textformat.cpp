#include "testsupport.h"

namespace {

const int familyId = [] {
    QTextCharFormat format;
    compat::setFontFamily(format, "Any"_s);
    return format.properties().constBegin().key();
}();

/*! The default format of a document with this default font. */
QTextCharFormat defaultFormatOf(const QFont& font)
{
    QTextDocument document;
    document.setDefaultFont(font);
    return ORVTextFormat::defaultCharFormat(&document);
}

} // namespace

class TestTextFormat : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(nothingStoredGivesFamilyAndSizeOnly)
    {
        const Rows add([](double size) {
            QFont font("DejaVu Serif"_s, 1, QFont::Bold, true);
            font.setPointSizeF(size);
            const QTextCharFormat format = defaultFormatOf(font);
            QCOMPARE(compat::fontFamily(format), "DejaVu Serif"_s);
            QCOMPARE(format.fontPointSize(), size);
            QCOMPARE(format.properties().keys(),
                     (QList<int>{qMin(familyId, int(QTextFormat::FontPointSize)),
                                 qMax(familyId, int(QTextFormat::FontPointSize))}));
        });
        add("points", 17.0);
        add("fraction of points", 10.5);
    }

    void pixelSizeIsTranslatedToPoints()
    {
        QFont font("DejaVu Serif"_s);
        font.setPixelSize(40);
        QVERIFY(QFontInfo(font).pointSizeF() > 0);
        QCOMPARE(defaultFormatOf(font).fontPointSize(), QFontInfo(font).pointSizeF());
    }

    void nullDocument()
    {
        ORVTextFormat::setDefaultCharFormat(nullptr, QTextCharFormat());
        QVERIFY(ORVTextFormat::defaultCharFormat(nullptr) == QTextCharFormat());
    }

    ORV_ROWS(storedFormatIsReturned)
    {
        const Rows add([](const QTextCharFormat& format) {
            QTextDocument document;
            ORVTextFormat::setDefaultCharFormat(&document, format);
            const QTextDocument& readOnly = document;
            const QTextCharFormat stored = ORVTextFormat::defaultCharFormat(&readOnly);
            QCOMPARE(stored.properties(), format.properties());
            QVERIFY(stored == format);
            QVERIFY(stored.isCharFormat());
        });
        add("empty", QTextCharFormat());
        QTextCharFormat format;
        compat::setFontFamily(format, "No Such Family"_s);
        format.setFontPointSize(13.5);
        add("font", format);
        format.setProperty(QTextFormat::FontWeight, 0);
        add("weight 0", format);
        format.setForeground(QColor(1, 2, 3));
        format.setProperty(QTextFormat::UserProperty + 10, 3);
        add("colour and property of the application", format);
    }

    void laterFormatReplacesEarlierOfSameDocument()
    {
        QTextDocument document;
        QTextDocument other;
        const QTextCharFormat italic = rtftest::charFormat({{QTextFormat::FontItalic, true}});
        const QTextCharFormat large = rtftest::charFormat({{QTextFormat::FontPointSize, 40.0}});
        ORVTextFormat::setDefaultCharFormat(&document, italic);
        QVERIFY(!ORVTextFormat::defaultCharFormat(&other).hasProperty(QTextFormat::FontItalic));
        ORVTextFormat::setDefaultCharFormat(&document, large);
        QVERIFY(ORVTextFormat::defaultCharFormat(&document) == large);
        QVERIFY(!document.defaultFont().italic());
    }

    void defaultFontFollowsFormat()
    {
        QTextDocument document;
        QTextCharFormat format = rtftest::bold();
        compat::setFontFamily(format, "DejaVu Serif"_s);
        format.setFontPointSize(13.5);
        format.setFontItalic(true);
        ORVTextFormat::setDefaultCharFormat(&document, format);
        QCOMPARE(document.defaultFont().family(), "DejaVu Serif"_s);
        QCOMPARE(document.defaultFont().pointSizeF(), qreal(13.5));
        QVERIFY(document.defaultFont().italic());
        QCOMPARE(int(document.defaultFont().weight()), int(QFont::Bold));
    }

    void weightZeroMakesNormalDefaultFont()
    {
        QTextDocument document;
        ORVTextFormat::setDefaultCharFormat(&document, rtftest::charFormat({{QTextFormat::FontWeight, 0}}));
        QCOMPARE(int(document.defaultFont().weight()), int(QFont::Normal));
    }

    void imageNameIsTheResourceName()
    {
        QTextImageFormat format;
        QCOMPARE(ORVTextFormat::imageName(format), QString());
        format.setName(":/images/a b.png"_s);
        QCOMPARE(ORVTextFormat::imageName(format), ":/images/a b.png"_s);
    }
};

ORV_TEST("textformat", TestTextFormat, QGuiApplication)
#include "textformat.moc"
