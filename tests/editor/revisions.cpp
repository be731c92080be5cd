#include "ORVRtfProperties.h"
#include "ORVTextRtfCommon.h"
#include "PrintCopy.h"
#include "RtfFile.h"
#include "editorhelpers.h"
#include "rtfwritinghelpers.h"

#include <QtGui/QTextLayout>
#include <QtWidgets/QStatusBar>

using namespace editortest;
using namespace rtftest;

namespace {

/*! Green text of revision level 2; colours 1 and 2 are black and white, which every colour table begins with.
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
    void init();
    void cleanup();

    void levelIsShownAsAColour_data();
    void levelIsShownAsAColour();
    void levelAndColourAreSaved();
    void exportedLevelIsAColour();
    void documentWithoutLevelsIsSavedForOtherPrograms();
    void actionSetsTheLevelOfTheSelection();
    void actionSetsTheLevelOfCells();
    void actionSetsTheLevelOfWhatIsTyped();
    void actionsShowTheLevelAtTheCursor();
    void printedLevelIsAColour();

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }
    int levelOf(const char* text) const
    {
        return formatOf(*document(), QLatin1String(text)).intProperty(ORVRtfProperty::RevisionLevel);
    }

    std::unique_ptr<EditorWindow> m_window;
};

void TestEditorRevisions::init()
{
    m_window = shownWindow();
}

void TestEditorRevisions::cleanup()
{
    m_window.reset();
}

void TestEditorRevisions::levelIsShownAsAColour_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QColor>("color");
    QTest::newRow("1") << 1 << QColor(Qt::red);
    QTest::newRow("2") << 2 << QColor(Qt::blue);
    QTest::newRow("3") << 3 << QColor(Qt::green);
    QTest::newRow("4") << 4 << QColor(255, 165, 0);
    QTest::newRow("5") << 5 << QColor(128, 0, 128);
}

void TestEditorRevisions::levelIsShownAsAColour()
{
    QFETCH(int, level);
    QFETCH(QColor, color);
    QVERIFY(
        openRtf(*m_window, "{\\rtf1\\ansi Text {\\*\\orvrevlvl" + QByteArray::number(level) + " new}{}}"));
    const auto shown = [this] { return document()->begin().layout()->formats(); };
    QTRY_COMPARE(shown().size(), 1);
    QCOMPARE(shown().first().start, 5);
    QCOMPARE(shown().first().length, 3);
    QCOMPARE(shown().first().format.foreground().color(), color);
}

void TestEditorRevisions::levelAndColourAreSaved()
{
    QVERIFY(openRtf(*m_window, greenSecondRevision()));
    QTRY_COMPARE(document()->begin().layout()->formats().size(), 1);
    const QByteArray rtf = savedRtf(*m_window);
    QVERIFY2(m_window->statusBar()->currentMessage().startsWith(QStringLiteral("Saved with revision levels")),
             qPrintable(m_window->statusBar()->currentMessage()));
    QCOMPARE(colorTableOf(rtf),
             QByteArray("\\red0\\green0\\blue0;\\red255\\green255\\blue255;\\red0\\green99\\blue0;"));
    QVERIFY2(rtf.contains("\\*\\orvrevlvl2\\cf3 green}"), rtf.constData());
    const QTextCharFormat format = formatOf(*read(rtf).document, QStringLiteral("green"));
    QCOMPARE(format.intProperty(ORVRtfProperty::RevisionLevel), 2);
    QCOMPARE(format.foreground().color(), QColor(0, 99, 0));
}

/*! Other programs know no revision levels. */
void TestEditorRevisions::exportedLevelIsAColour()
{
    QVERIFY(openRtf(*m_window, greenSecondRevision()));
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("exported.rtf"));
    QString message;
    QVERIFY(RtfFile::exportTo(file, *document(), &message));
    const QByteArray rtf = fileContent(file);
    QVERIFY2(!rtf.contains("\\orvrevlvl"), rtf.constData());
    QCOMPARE(formatOf(*read(rtf).document, QStringLiteral("green")).foreground().color(), QColor(Qt::blue));
    QCOMPARE(levelOf("green"), 2);
}

/*! So that page numbers, for example, are fields. */
void TestEditorRevisions::documentWithoutLevelsIsSavedForOtherPrograms()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\*\\orvrevlvl1 Text}{}}"));
    QString message;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("exported.rtf"));
    select(*m_window, 0, 4);
    actionOf(*m_window, "None")->trigger();
    QVERIFY(RtfFile::exportTo(file, *document(), &message));
    QCOMPARE(savedRtf(*m_window), fileContent(file));
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
}

void TestEditorRevisions::actionSetsTheLevelOfTheSelection()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\b b}cd{}}"));
    select(*m_window, 1, 3);
    actionOf(*m_window, "Revision 4")->trigger();
    QCOMPARE(levelOf("a"), 0);
    QCOMPARE(levelOf("b"), 4);
    QCOMPARE(levelOf("c"), 4);
    QCOMPARE(levelOf("d"), 0);
    actionOf(*m_window, "None")->trigger();
    QVERIFY(!formatOf(*document(), QStringLiteral("b")).hasProperty(ORVRtfProperty::RevisionLevel));
    QCOMPARE(contentOf(*m_window), QStringLiteral("a*b*cd"));
}

void TestEditorRevisions::actionSetsTheLevelOfCells()
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

void TestEditorRevisions::actionSetsTheLevelOfWhatIsTyped()
{
    m_window->textEdit()->setPlainText(QStringLiteral("a"));
    select(*m_window, 1, 1);
    actionOf(*m_window, "Revision 3")->trigger();
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("b"));
    QCOMPARE(levelOf("a"), 0);
    QCOMPARE(levelOf("b"), 3);
}

void TestEditorRevisions::actionsShowTheLevelAtTheCursor()
{
    QVERIFY(openRtf(*m_window, greenSecondRevision()));
    QVERIFY(actionOf(*m_window, "None")->isChecked());
    select(*m_window, 7, 7);
    QVERIFY(actionOf(*m_window, "Revision 2")->isChecked());
    QVERIFY(!actionOf(*m_window, "None")->isChecked());
}

void TestEditorRevisions::printedLevelIsAColour()
{
    QVERIFY(openRtf(*m_window, greenSecondRevision()));
    const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
    QCOMPARE(formatOf(*copy, QStringLiteral("green")).foreground().color(), QColor(Qt::blue));
    QCOMPARE(formatOf(*document(), QStringLiteral("green")).foreground().color(), QColor(0, 99, 0));
}

QTEST_MAIN(TestEditorRevisions)
#include "tst_editor_revisions.moc"
