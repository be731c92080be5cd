#include "testpaths.h"
#include "tooltest.h"

namespace {

const char head[] = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Serif;}}\\f0 ";

/*! What qpdf finds in a PDF file. */
class PdfFile {
public:
    explicit PdfFile(const QByteArray& json)
    {
        const QJsonObject all = QJsonDocument::fromJson(json).object();
        m_objects = all.value("qpdf"_s).toArray().at(1).toObject();
        m_outline = all.value("outlines"_s).toArray();
        const QJsonArray pages = all.value("pages"_s).toArray();
        for (const QJsonValue& page : pages)
            m_pages << page.toObject().value("object"_s).toString();
    }

    /*! The entries of the outline, a line each: title, page and height, deeper ones behind more blanks. */
    QString outline() const { return outline(m_outline, QString()); }

    /*! The links of the page \a number, counted from 1: rectangle and target, as outline() has places. */
    QList<QPair<QRectF, QString>> links(int number) const
    {
        QList<QPair<QRectF, QString>> links;
        const QJsonArray annotations = object(m_pages.value(number - 1)).value("/Annots"_s).toArray();
        for (const QJsonValue& reference : annotations) {
            const QJsonObject annotation = object(reference.toString());
            const QJsonArray edges = annotation.value("/Rect"_s).toArray();
            const QRectF area(QPointF(edges.at(0).toDouble(), edges.at(1).toDouble()),
                              QPointF(edges.at(2).toDouble(), edges.at(3).toDouble()));
            const QString uri = annotation.value("/A"_s).toObject().value("/URI"_s).toString();
            links.append({area, uri.isEmpty() ? place(annotation.value("/Dest"_s)) : uri.mid(2)});
        }
        return links;
    }

    QStringList targets(int number) const
    {
        QStringList targets;
        const auto all = links(number);
        for (const auto& link : all)
            targets << link.second;
        return targets;
    }

    QJsonObject object(const QString& reference) const
    {
        return m_objects.value("obj:"_s + reference).toObject().value("value"_s).toObject();
    }

    QJsonObject root() const { return object(trailer().value("/Root"_s).toString()); }
    QJsonObject information() const { return object(trailer().value("/Info"_s).toString()); }
    int pageCount() const { return m_pages.size(); }

private:
    QJsonObject trailer() const
    {
        return m_objects.value("trailer"_s).toObject().value("value"_s).toObject();
    }

    /*! The page, counted from 1, and the distance from its lower edge in whole points. */
    QString place(const QJsonValue& destination) const
    {
        const QJsonArray parts = destination.toArray();
        return "page %1 at %2"_s.arg(m_pages.indexOf(parts.at(0).toString()) + 1)
            .arg(qRound(parts.at(3).toDouble()));
    }

    QString outline(const QJsonArray& entries, const QString& indent) const
    {
        QString text;
        for (const QJsonValue& value : entries) {
            const QJsonObject entry = value.toObject();
            const QJsonArray below = entry.value("kids"_s).toArray();
            const QString sign = below.isEmpty() || entry.value("open"_s).toBool() ? QString() : "+ "_s;
            text += indent + sign + entry.value("title"_s).toString() + ", "_s
                + place(object(entry.value("object"_s).toString()).value("/Dest"_s)) + QLatin1Char('\n')
                + outline(below, indent + QLatin1Char(' '));
        }
        return text;
    }

    QJsonObject m_objects;
    QJsonArray m_outline;
    QStringList m_pages;
};

QByteArray linkTo(const QByteArray& target, const QByteArray& text)
{
    return "{\\field{\\*\\fldinst HYPERLINK " + target + "}{\\fldrslt " + text + "}}";
}

QByteArray headings(int count, int level)
{
    return "\\pard\\outlinelevel" + QByteArray::number(level) + " x\\par"_b.repeated(count) + ' ';
}

} // namespace

/*! What PDF files have besides their pages: outline, links, information. */
class TestToolPdf : public ToolTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!ORVRTF_PDF_NAVIGATION)
            QSKIP("the tool was built without libqpdf");
    }

    // Page and margins are those of RTF: 792 points high, with 72 above the text.
    ORV_ROWS(outlines)
    {
        const Rows add([this](const QByteArray& body, const QString& outline) {
            QCOMPARE(converted(body).outline(), outline);
        });
        add("no headings", "text", "");
        add("levels",
            "\\pard\\outlinelevel0 One\\par\\page\\outlinelevel1 Two\\par\\page\\outlinelevel2 "
            "Three\\par\\page"
            "\\outlinelevel1 Four\\par\\page\\outlinelevel0 Five\\par",
            "One, page 1 at 720\n Two, page 2 at 720\n  Three, page 3 at 720\n Four, page 4 at 720\n"
            "Five, page 5 at 720\n");
        add("a level is left out",
            "\\pard\\outlinelevel0 One\\par\\page\\outlinelevel3 Two\\par\\page\\outlinelevel2 Three\\par",
            "One, page 1 at 720\n Two, page 2 at 720\n Three, page 3 at 720\n");
        add("from a low level on", "\\pard\\outlinelevel4 One\\par\\page\\outlinelevel1 Two\\par",
            "One, page 1 at 720\nTwo, page 2 at 720\n");
        add("any characters", "\\pard\\outlinelevel0 (\\'e4\\\\\\u8364?\\u-10180?\\u-8261?) \\{x\\par",
            u8"(\u00e4\\\u20ac\U0001F3BB) {x, page 1 at 720\n");
        add("control characters", "\\pard\\outlinelevel0 a\\u1?b\\tab c\\line d\\u7?\\-e\\par",
            "ab c de, page 1 at 720\n");
        add("only control characters", "\\pard\\outlinelevel0 \\u1?\\par", "");
        add("numbers",
            "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid7}}"
            "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}\\pard\\ls1\\outlinelevel0 One\\par\\page "
            "Two",
            "1. One, page 1 at 720\n2. Two, page 2 at 720\n");
    }

    /*! As many whole levels as have up to 40 entries are open. */
    ORV_ROWS(openEntries)
    {
        const Rows add([this](const QByteArray& body, int count, int visible, int closed) {
            const PdfFile file = converted(body);
            const QString outline = file.outline();
            QCOMPARE(outline.count(QLatin1Char('\n')), count);
            QCOMPARE(outline.count(QLatin1Char('+')), closed);
            const QString root = file.root().value("/Outlines"_s).toString();
            QVERIFY(!root.isEmpty());
            QCOMPARE(file.object(root).value("/Count"_s).toInt(), visible);
        });
        const QByteArray chapter = headings(1, 0) + headings(19, 1);
        add("one level", headings(50, 0), 50, 50, 0);
        add("two levels", chapter.repeated(2), 40, 40, 0);
        add("two long levels", chapter.repeated(3), 60, 3, 3);
        add("third level", headings(1, 0) + headings(2, 1) + headings(50, 2), 53, 3, 1);
    }

    ORV_ROWS(links)
    {
        const Rows add(
            [this](const QByteArray& body, const QStringList& firstPage, const QStringList& secondPage) {
                const PdfFile file = converted(body);
                QCOMPARE(file.targets(1), firstPage);
                QCOMPARE(file.targets(2), secondPage);
            });
        const QStringList none;
        add("none", "text", none, none);
        add("address", linkTo("\"http://example.org/?a=1&b=(2)\"", "Link"),
            QStringList("http://example.org/?a=1&b=(2)"_s), none);
        add("not ASCII", linkTo("\"http://example.org/\\'e4\\u8364?\"", "Link"),
            QStringList("http://example.org/%C3%A4%E2%82%AC"_s), none);
        add("two", linkTo("\"mailto:a@b.org\"", "Mail") + " and\\page " + linkTo("\"http://c.org\"", "web"),
            QStringList("mailto:a@b.org"_s), QStringList("http://c.org"_s));
        add("bookmark",
            linkTo("\\\\l \"there\"", "Link") + "\\page{\\*\\bkmkstart there}text{\\*\\bkmkend there}",
            QStringList("page 2 at 720"_s), none);
        add("bookmark in front",
            "{\\*\\bkmkstart there}text{\\*\\bkmkend there}\\page " + linkTo("\\\\l \"there\"", "Link"), none,
            QStringList("page 1 at 720"_s));
        add("missing bookmark", linkTo("\\\\l \"there\"", "Link"), none, none);
        add("script", linkTo("\"javascript:alert(1)\"", "Link"), none, none);
    }

    void headingsAreWhereTheTextIs()
    {
        const QString outline =
            converted("text\\par\\fs40 text\\par\\sb700\\outlinelevel0 Heading\\par").outline();
        const QList<QRectF> words = wordsOfPage(1, "Heading"_s);
        QCOMPARE(words.size(), 1);
        const double height = outline.section(QLatin1Char(' '), -1).toDouble();
        QVERIFY2(qAbs(height - words.at(0).bottom()) < 3, qPrintable(outline));
    }

    void notes()
    {
        const PdfFile file =
            converted("text{\\super\\chftn{\\footnote \\pard {\\super\\chftn} note}}\\page more");
        QCOMPARE(file.targets(1).size(), 1);
        QVERIFY2(file.targets(1).at(0).startsWith("page 2 at 6"_s), qPrintable(file.targets(1).at(0)));
        QCOMPARE(file.targets(2), QStringList("page 1 at 720"_s));
    }

    /*! Each word of a link is within a rectangle that is not much higher, where another program sees it. */
    ORV_ROWS(areasOfLinks)
    {
        const Rows add([this](const QByteArray& body, int page) {
            const PdfFile file = converted(body);
            const QList<QRectF> words = wordsOfPage(page, "Link"_s);
            QCOMPARE(words.size(), 1);
            // Only the width is exact: the heights of lines are rounded.
            const QRectF area = areaOf(file, page, "http://example.org"_s);
            const QRectF word = words.at(0);
            const QString shown = "%1 to %2, %3 to %4; word %5 to %6, %7 to %8"_s.arg(area.left())
                                      .arg(area.right())
                                      .arg(area.top())
                                      .arg(area.bottom())
                                      .arg(word.left())
                                      .arg(word.right())
                                      .arg(word.top())
                                      .arg(word.bottom());
            QVERIFY2(qAbs(area.left() - word.left()) < 1 && qAbs(area.right() - word.right()) < 1,
                     qPrintable(shown));
            QVERIFY2(qAbs(area.top() - word.top()) < 2 && qAbs(area.bottom() - word.bottom()) < 2,
                     qPrintable(shown));
        });
        const QByteArray field = linkTo("\"http://example.org\"", "Link");
        add("paragraph", "text " + field + " text", 1);
        add("large", "{\\fs72 text " + field + " text}", 1);
        add("second page", "text\\page\\qr text " + field, 2);
        add("landscape", "\\landscape\\paperw15840\\paperh12240\\margl3000 text\\par\\qc text " + field, 1);
        add("table",
            "\\trowd\\trgaph100\\cellx2000\\cellx6000\\intbl text\\cell text\\par text " + field
                + " text\\cell\\row\\pard",
            1);
        add("note", "text{\\super\\chftn{\\footnote \\pard note " + field + "}}", 1);
        add("behind a tab", "\\tqr\\tx6000 text\\tab " + field, 1);
    }

    void information()
    {
        const PdfFile file =
            converted("\\deflang1031{\\info{\\title T\\'e4\\u8364?}{\\author J\\'f6rg (x)}{\\subject Sub}"
                      "{\\keywords one, two}}text");
        const QJsonObject information = file.information();
        QCOMPARE(information.value("/Title"_s).toString(), u8"u:T\u00e4\u20ac"_s);
        QCOMPARE(information.value("/Author"_s).toString(), u8"u:J\u00f6rg (x)"_s);
        QCOMPARE(information.value("/Subject"_s).toString(), "u:Sub"_s);
        QCOMPARE(information.value("/Keywords"_s).toString(), "u:one, two"_s);
        QCOMPARE(information.value("/Creator"_s).toString(), "u:orvrtf"_s);
        QVERIFY(information.value("/CreationDate"_s).toString().startsWith("u:D:20"_s));
        QCOMPARE(file.root().value("/Lang"_s).toString(), "u:de-DE"_s);
    }

    /*! Where none is stated. */
    void languageOfMostText()
    {
        const PdfFile file =
            converted("{\\lang1036 un}{\\lang1031 zwei drei}{\\lang1036 deux}{\\lang1031 vier}");
        QCOMPARE(file.root().value("/Lang"_s).toString(), "u:de-DE"_s);
    }

    void unknownInformationIsLeftOut()
    {
        const PdfFile file = converted("text");
        for (const char* key : {"/Title", "/Author", "/Subject", "/Keywords"})
            QVERIFY2(!file.information().contains(QLatin1String(key)), key);
        QVERIFY(!file.root().contains("/Lang"_s));
    }

    /*! But for its date, and the number that is made of all of it. */
    void sameFileAgain()
    {
        const QByteArray body = headings(3, 0) + linkTo("\"http://example.org\"", "Link");
        QByteArray files[2];
        for (QByteArray& file : files) {
            converted(body);
            file = QString::fromLatin1(read("out.pdf"))
                       .replace(QRegularExpression("D:\\d+Z?|/ID \\[[^]]*\\]"_s), QString())
                       .toLatin1();
        }
        QVERIFY(files[0] == files[1]);
    }

    /*! qpdf finds nothing wrong, and every link is on its page. */
    ORV_ROWS(samples)
    {
        const Rows add([this](const QString& name, int least) {
            const PdfFile file = convertedFile(QString::fromUtf8(TEST_DATA_DIR) + QLatin1Char('/') + name);
            runProgram("qpdf", {"--check"_s, path("out.pdf")});
            int count = 0;
            for (int page = 1; page <= file.pageCount(); ++page) {
                const auto links = file.links(page);
                count += links.size();
                for (const auto& link : links)
                    QVERIFY(QRectF(0, 0, 612, 842).contains(link.first) && !link.first.isEmpty());
            }
            QVERIFY2(count >= least, QByteArray::number(count).constData());
        });
        add("links", "libreoffice-links.rtf", 10);
        add("notes", "pandoc-notes.rtf", 20);
        add("grids", "abiword-grids.rtf", 0);
    }

private:
    QByteArray runProgram(const char* name, const QStringList& arguments) const
    {
        QProcess process;
        process.start(QString::fromLatin1(name), arguments);
        if (!process.waitForStarted() || !process.waitForFinished(120000) || process.exitCode() != 0)
            qFatal("%s fails: %s", name, process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    /*! The PDF file that the tool makes of RTF with \a body. */
    PdfFile converted(const QByteArray& body) const
    {
        return convertedFile(write("in.rtf", head + body + '}'));
    }

    PdfFile convertedFile(const QString& rtf) const
    {
        const ToolRun result = run({"convert"_s, rtf, path("out.pdf")});
        if (result.exitCode != 0 || !result.err.isEmpty())
            qFatal("convert ends with %d: %s", result.exitCode, result.err.constData());
        return PdfFile(runProgram("qpdf", {"--json=2"_s, path("out.pdf")}));
    }

    /*! The rectangle of the only link to \a target on a page. */
    static QRectF areaOf(const PdfFile& file, int page, const QString& target)
    {
        QRectF area;
        const auto links = file.links(page);
        for (const auto& link : links) {
            if (link.second == target)
                area = area.isNull() ? link.first : QRectF();
        }
        return area;
    }

    /*! Where pdftotext sees \a word, with the origin at the lower left corner as in PDF. */
    QList<QRectF> wordsOfPage(int page, const QString& word) const
    {
        const QString number = QString::number(page);
        const QString html = QString::fromUtf8(
            runProgram("pdftotext", {"-bbox"_s, "-f"_s, number, "-l"_s, number, path("out.pdf"), "-"_s}));
        const double height = QRegularExpression("height=\"([\\d.]+)\""_s).match(html).captured(1).toDouble();
        const QRegularExpression expression(
            "xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">"_s + word
            + QLatin1Char('<'));
        QList<QRectF> words;
        QRegularExpressionMatchIterator it = expression.globalMatch(html);
        while (it.hasNext()) {
            const QRegularExpressionMatch match = it.next();
            words.append(
                QRectF(QPointF(match.captured(1).toDouble(), height - match.captured(4).toDouble()),
                       QPointF(match.captured(3).toDouble(), height - match.captured(2).toDouble())));
        }
        return words;
    }
};

ORV_TEST_WITH("pdftotext qpdf", "tool_pdf", TestToolPdf, QCoreApplication)
#include "pdf.moc"
