#include "testsupport.h"

namespace {

const int familyId = [] {
    QTextCharFormat format;
    compat::setFontFamily(format, "Any"_s);
    return format.properties().constBegin().key();
}();

} // namespace

class TestTextFormat : public QObject {
    Q_OBJECT

private slots:
    void nothingStoredGivesFamilyAndSizeOnly()
    {
        QTextDocument document;
        QFont font("DejaVu Serif"_s, 17, QFont::Bold, true);
        document.setDefaultFont(font);
        const QTextCharFormat format = ORVTextFormat::defaultCharFormat(&document);
        QCOMPARE(compat::fontFamily(format), "DejaVu Serif"_s);
        QCOMPARE(format.fontPointSize(), qreal(17));
        QCOMPARE(format.properties().keys(),
                 QList<int>() << qMin(familyId, int(QTextFormat::FontPointSize))
                              << qMax(familyId, int(QTextFormat::FontPointSize)));
    }

    void fractionalPointSizeIsKept()
    {
        QTextDocument document;
        QFont font("DejaVu Serif"_s);
        font.setPointSizeF(10.5);
        document.setDefaultFont(font);
        QCOMPARE(ORVTextFormat::defaultCharFormat(&document).fontPointSize(), qreal(10.5));
    }

    void pixelSizeIsTranslatedToPoints()
    {
        QTextDocument document;
        QFont font("DejaVu Serif"_s);
        font.setPixelSize(40);
        document.setDefaultFont(font);
        const qreal size = ORVTextFormat::defaultCharFormat(&document).fontPointSize();
        QVERIFY(size > 0);
        QCOMPARE(size, QFontInfo(font).pointSizeF());
    }

    void nullDocument()
    {
        ORVTextFormat::setDefaultCharFormat(nullptr, QTextCharFormat());
        QVERIFY(ORVTextFormat::defaultCharFormat(nullptr) == QTextCharFormat());
    }

    ORV_ROWS(storedFormatIsReturned)
    {
        const Rows add([](const QTextFormat& format) {
            QTextDocument document;
            ORVTextFormat::setDefaultCharFormat(&document, format.toCharFormat());
            const QTextDocument& readOnly = document;
            const QTextCharFormat stored = ORVTextFormat::defaultCharFormat(&readOnly);
            QCOMPARE(stored.properties(), format.properties());
            QVERIFY(stored == format);
            QVERIFY(stored.isCharFormat());
        });
        add("empty", QTextFormat(QTextCharFormat()));
        QTextCharFormat format;
        compat::setFontFamily(format, "No Such Family"_s);
        format.setFontPointSize(13.5);
        add("font", QTextFormat(format));
        format.setProperty(QTextFormat::FontWeight, 0);
        add("weight 0", QTextFormat(format));
        format.setForeground(QColor(1, 2, 3));
        format.setProperty(QTextFormat::UserProperty + 10, 3);
        add("colour and property of the application", QTextFormat(format));
    }

    void laterFormatReplacesEarlier()
    {
        QTextDocument document;
        QTextCharFormat italic;
        italic.setFontItalic(true);
        QTextCharFormat large;
        large.setFontPointSize(40);
        ORVTextFormat::setDefaultCharFormat(&document, italic);
        ORVTextFormat::setDefaultCharFormat(&document, large);
        QVERIFY(ORVTextFormat::defaultCharFormat(&document) == large);
        QVERIFY(!document.defaultFont().italic());
    }

    void documentsDoNotShareTheirFormats()
    {
        QTextDocument first;
        QTextDocument second;
        second.setDefaultFont(QFont("DejaVu Serif"_s, 9));
        QTextCharFormat italic;
        italic.setFontItalic(true);
        ORVTextFormat::setDefaultCharFormat(&first, italic);
        QVERIFY(!ORVTextFormat::defaultCharFormat(&second).hasProperty(QTextFormat::FontItalic));
    }

    void defaultFontFollowsFormat()
    {
        QTextDocument document;
        QTextCharFormat format;
        compat::setFontFamily(format, "DejaVu Serif"_s);
        format.setFontPointSize(13.5);
        format.setFontItalic(true);
        format.setProperty(QTextFormat::FontWeight, int(QFont::Bold));
        ORVTextFormat::setDefaultCharFormat(&document, format);
        QCOMPARE(document.defaultFont().family(), "DejaVu Serif"_s);
        QCOMPARE(document.defaultFont().pointSizeF(), qreal(13.5));
        QVERIFY(document.defaultFont().italic());
        QCOMPARE(int(document.defaultFont().weight()), int(QFont::Bold));
    }

    void weightZeroMakesNormalDefaultFont()
    {
        QTextDocument document;
        QTextCharFormat format;
        format.setProperty(QTextFormat::FontWeight, 0);
        ORVTextFormat::setDefaultCharFormat(&document, format);
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
