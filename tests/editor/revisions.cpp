#include "PrintCopy.h"
#include "RtfFile.h"
#include "editorhelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

/*!
    Green text of revision level 2; colours 1 and 2 are black and white, which every colour table begins with.
*/
QByteArray greenSecondRevision()
{
    return "{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;"
           "\\red0\\green99\\blue0;}"
           "Text {\\*\\orvrevlvl2\\cf3 green}{}}";
}

QByteArray fileContent(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no file");
    return file.readAll();
}

} // namespace

/*! Revision levels in the editor window. */
class TestEditorRevisions : public QObject {
    Q_OBJECT

private slots:
    void init() { m_window = shownWindow(); }
    void cleanup() { m_window.reset(); }

    ORV_ROWS(levelIsShownAsAColour)
    {
        const Rows add([this](int level, const QColor& color) {
            QVERIFY(openRtf(*m_window,
                            "{\\rtf1\\ansi Text {\\*\\orvrevlvl" + QByteArray::number(level) + " new}{}}"));
            const auto shown = [this] { return document()->begin().layout()->formats(); };
            QTRY_COMPARE(shown().size(), 1);
            QCOMPARE(shown().first().start, 5);
            QCOMPARE(shown().first().length, 3);
            QCOMPARE(shown().first().format.foreground().color(), color);
        });
        add("1", 1, QColor(Qt::red));
        add("2", 2, QColor(Qt::blue));
        add("3", 3, QColor(Qt::green));
        add("4", 4, QColor(255, 165, 0));
        add("5", 5, QColor(128, 0, 128));
    }

    void levelAndColourAreSaved()
    {
        QVERIFY(openRtf(*m_window, greenSecondRevision()));
        QTRY_COMPARE(document()->begin().layout()->formats().size(), 1);
        const QByteArray rtf = savedRtf(*m_window);
        QVERIFY2(m_window->statusBar()->currentMessage().startsWith("Saved with revision levels"_s),
                 qPrintable(m_window->statusBar()->currentMessage()));
        QCOMPARE(colorTableOf(rtf),
                 "\\red0\\green0\\blue0;\\red255\\green255\\blue255;\\red0\\green99\\blue0;"_b);
        QVERIFY2(rtf.contains("\\*\\orvrevlvl2\\cf3 green}"), rtf.constData());
        const QTextCharFormat format = formatOf(*read(rtf).document, "green"_s);
        QCOMPARE(format.intProperty(ORVRtfProperty::RevisionLevel), 2);
        QCOMPARE(format.foreground().color(), QColor(0, 99, 0));
    }

    /*! Other programs know no revision levels. */
    void exportedLevelIsAColour()
    {
        QVERIFY(openRtf(*m_window, greenSecondRevision()));
        QTemporaryDir folder;
        const QString file = folder.filePath("exported.rtf"_s);
        QString message;
        QVERIFY(RtfFile::exportTo(file, *document(), &message));
        const QByteArray rtf = fileContent(file);
        QVERIFY2(!rtf.contains("\\orvrevlvl"), rtf.constData());
        QCOMPARE(formatOf(*read(rtf).document, "green"_s).foreground().color(), QColor(Qt::blue));
        QCOMPARE(levelOf("green"), 2);
    }

    /*! So that page numbers, for example, are fields. */
    void documentWithoutLevelsIsSavedForOtherPrograms()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\*\\orvrevlvl1 Text}{}}"));
        QString message;
        QTemporaryDir folder;
        const QString file = folder.filePath("exported.rtf"_s);
        select(*m_window, 0, 4);
        actionOf(*m_window, "None")->trigger();
        QVERIFY(RtfFile::exportTo(file, *document(), &message));
        QCOMPARE(savedRtf(*m_window), fileContent(file));
        QCOMPARE(m_window->statusBar()->currentMessage(), QString());
    }

    void actionSetsTheLevelOfTheSelection()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\b b}cd{}}"));
        select(*m_window, 1, 3);
        actionOf(*m_window, "Revision 4")->trigger();
        QCOMPARE(levelOf("a"), 0);
        QCOMPARE(levelOf("b"), 4);
        QCOMPARE(levelOf("c"), 4);
        QCOMPARE(levelOf("d"), 0);
        actionOf(*m_window, "None")->trigger();
        QVERIFY(!formatOf(*document(), "b"_s).hasProperty(ORVRtfProperty::RevisionLevel));
        QCOMPARE(contentOf(*m_window), "a*b*cd"_s);
    }

    void actionSetsTheLevelOfCells()
    {
        setBody(*m_window,
                "\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row"
                "\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\cell d\\cell\\row\\pard");
        const QTextTable* table = qobject_cast<QTextTable*>(document()->rootFrame()->childFrames().first());
        QTextCursor column = table->cellAt(0, 0).firstCursorPosition();
        column.setPosition(table->cellAt(1, 0).lastCursorPosition().position(), QTextCursor::KeepAnchor);
        m_window->textEdit()->setTextCursor(column);
        actionOf(*m_window, "Revision 1")->trigger();
        QCOMPARE(levelOf("a"), 1);
        QCOMPARE(levelOf("b"), 0);
        QCOMPARE(levelOf("c"), 1);
    }

    void actionSetsTheLevelOfWhatIsTyped()
    {
        m_window->textEdit()->setPlainText("a"_s);
        select(*m_window, 1, 1);
        actionOf(*m_window, "Revision 3")->trigger();
        QTest::keyClicks(m_window->textEdit(), "b"_s);
        QCOMPARE(levelOf("a"), 0);
        QCOMPARE(levelOf("b"), 3);
    }

    void actionsShowTheLevelAtTheCursor()
    {
        QVERIFY(openRtf(*m_window, greenSecondRevision()));
        QVERIFY(actionOf(*m_window, "None")->isChecked());
        select(*m_window, 7, 7);
        QVERIFY(actionOf(*m_window, "Revision 2")->isChecked());
        QVERIFY(!actionOf(*m_window, "None")->isChecked());
    }

    void printedLevelIsAColour()
    {
        QVERIFY(openRtf(*m_window, greenSecondRevision()));
        const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
        QCOMPARE(formatOf(*copy, "green"_s).foreground().color(), QColor(Qt::blue));
        QCOMPARE(formatOf(*document(), "green"_s).foreground().color(), QColor(0, 99, 0));
    }

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }

    int levelOf(const char* text) const
    {
        return formatOf(*document(), QLatin1String(text)).intProperty(ORVRtfProperty::RevisionLevel);
    }

    std::unique_ptr<EditorWindow> m_window;
};

ORV_TEST("editor_revisions", TestEditorRevisions, QApplication)
#include "revisions.moc"
