#include "ORVRounding_p.h"
#include "ORVTextPage.h"
#include "PageActions.h"
#include "PageDialog.h"
#include "PageView.h"
#include "PdfFile.h"
#include "PreviewWindow.h"
#include "editorhelpers.h"

#include <algorithm>

using namespace editortest;
using namespace rtftest;

namespace {

/*! A page whose sides and margins are whole millimetres only nearly, in twips. */
QByteArray oddPage()
{
    return "\\paperw11906\\paperh16838\\margl1701\\margr1134\\margt1417\\margb1137";
}

/*! A paragraph that is indented by 36 points, its first line by 18, with 12 points above it. */
QByteArray indented(const QByteArray& text)
{
    return "\\pard\\li720\\fi-360\\sb240 " + text;
}

/*! Whether there is something but white in \a area of \a image. */
bool isPainted(const QImage& image, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                return true;
        }
    }
    return false;
}

/*! The combo boxes of \a dialog that have the choice \a text. */
QList<QComboBox*> boxesWith(const PageDialog& dialog, const QString& text)
{
    QList<QComboBox*> boxes;
    const QList<QComboBox*> all = dialog.findChildren<QComboBox*>();
    std::copy_if(all.begin(), all.end(), std::back_inserter(boxes),
                 [&](const QComboBox* box) { return box->findText(text) >= 0; });
    return boxes;
}

} // namespace

/*! Formats as they are shown, page set-up, preview and PDF in the editor window. */
class TestEditorPages : public EditorTest {
    Q_OBJECT

private slots:
    /*! In pixels, of which 96 make an inch. */
    void openedFormatsAreShown()
    {
        open(indented("text"));
        const QTextBlockFormat format = document()->begin().blockFormat();
        QCOMPARE(format.leftMargin(), 48.0);
        QCOMPARE(format.textIndent(), -24.0);
        QCOMPARE(format.topMargin(), 16.0);
        // Opening is no step for undo.
        QVERIFY(document()->isUndoRedoEnabled());
        QVERIFY(!document()->isUndoAvailable());
        QVERIFY(!document()->isModified());
    }

    void openedFormatsAreSavedAsTheyWereUnlessChanged()
    {
        const QByteArray body =
            indented("one") + "\\par\\pard\\ri360\\sl360\\slmult1\\tx720 two {\\up6 three}{}";
        open(body);
        const Reading before = readBody(body);
        const Reading after = read(saved());
        for (int i = 0; i < 2; ++i)
            QCOMPARE(dump(after.blockFormat(i)), dump(before.blockFormat(i)));
        // Shown as superscript, which it is not.
        QCOMPARE(formatOf(*document(), "three"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(after.format("three"_s).verticalAlignment(), QTextCharFormat::AlignNormal);
        // What is changed is saved in the units of the file.
        QTextBlockFormat wider;
        wider.setLeftMargin(96);
        edit()->textCursor().mergeBlockFormat(wider);
        const QTextBlockFormat format = read(saved()).blockFormat(0);
        QCOMPARE(format.doubleProperty(ORVRtfProperty::LeftIndent), 72.0);
        QCOMPARE(format.topMargin(), 12.0);
        QCOMPARE(document()->begin().blockFormat().leftMargin(), 96.0);
    }

    void copiedFormatsAreThoseOfTheFile()
    {
        open(oddPage() + indented("one\\par two"));
        edit()->selectAll();
        edit()->copy();
        const QByteArray rtf = QApplication::clipboard()->mimeData()->data("text/rtf"_s);
        QVERIFY2(rtf.contains(oddPage()), rtf.constData());
        const QTextBlockFormat copied = read(rtf).blockFormat(0);
        QCOMPARE(copied.doubleProperty(ORVRtfProperty::LeftIndent), 36.0);
        QCOMPARE(copied.textIndent(), 18.0);
        QCOMPARE(copied.topMargin(), 12.0);
    }

    void pastedFormatsAreShown()
    {
        paste(indented("one\\par two"));
        QCOMPARE(document()->begin().blockFormat().leftMargin(), 48.0);
        const Reading reading = read(saved());
        QCOMPARE(reading.text(), "one\ntwo"_s);
        QCOMPARE(reading.blockFormat(0).doubleProperty(ORVRtfProperty::LeftIndent), 36.0);
    }

    /*! What reaches to the margin there reaches to the margin here. */
    void textFromAWiderPageIsPasted()
    {
        paste("\\paperw20000\\pard\\ri0 one\\par\\pard\\ri720 two\\par three");
        QCOMPARE(document()->begin().blockFormat().rightMargin(), 0.0);
        QCOMPARE(document()->begin().next().blockFormat().rightMargin(), 48.0);
        // The text is 8640 twips wide, which are 432 points.
        QCOMPARE(read(saved()).blockFormat(1).doubleProperty(ORVRtfProperty::RightIndent), 396.0);
    }

    void dialogKeepsWhatIsNotChanged()
    {
        open(oddPage() + " text");
        QVERIFY2(saved().contains(oddPage()), saved().constData());
        trigger<PageDialog>("Page set-up…", [](PageDialog* dialog) {
            dialog->findChild<QDoubleSpinBox*>("rightMargin"_s)->setValue(10);
            dialog->accept();
        });
        QVERIFY(document()->isModified());
        // 10 mm are 566.9 twips.
        const QByteArray page = oddPage().replace("\\margr1134", "\\margr567");
        QVERIFY2(saved().contains(page), saved().constData());
    }

    ORV_ROWS(dialogShowsAndKeeps)
    {
        const Rows add([](const QSizeF& paper, double margin, int alignment, const QString& shownPaper) {
            PageSettings settings;
            settings.page.paperSize = paper;
            settings.page.leftMargin = margin;
            settings.page.topMargin = margin;
            settings.header.option.setAlignment(Qt::Alignment(alignment));
            settings.footer.option.setAlignment(Qt::Alignment(alignment));
            const PageDialog dialog(settings, nullptr);
            const PageSettings kept = dialog.settings();
            QCOMPARE(kept.page.paperSize, paper);
            QCOMPARE(kept.page.leftMargin, margin);
            QCOMPARE(kept.page.topMargin, margin);
            QCOMPARE(int(kept.header.option.alignment()), alignment);
            QCOMPARE(int(kept.footer.option.alignment()), alignment);
            const QComboBox* const papers = boxesWith(dialog, "A4"_s).value(0);
            QVERIFY(papers);
            QCOMPARE(papers->currentText(), shownPaper);
        });
        const QSizeF a4(595.3, 841.9);
        add("negative margin", a4, -36.0, int(Qt::AlignLeft), "A4");
        // 22 inches are 1584 points.
        add("paper of more than 22 inches", QSizeF(1600, 3000), 72.0, int(Qt::AlignLeft), "Other");
        add("paper of 22 inches, no margin", QSizeF(1584, 500), 0.0, int(Qt::AlignLeft), "Other");
        add("centre", a4, 72.0, int(Qt::AlignHCenter), "A4");
        add("right", a4, 72.0, int(Qt::AlignRight), "A4");
        add("none of the choices", a4, 72.0, int(Qt::AlignJustify), "A4");
        add("more than a choice", a4, 72.0, int(Qt::AlignRight | Qt::AlignBottom), "A4");
        add("A4 in whole points", QSizeF(595, 842), 72.0, int(Qt::AlignLeft), "A4");
        add("A4 in twips", a4, 72.0, int(Qt::AlignLeft), "A4");
        add("A4 on its side", QSizeF(841.9, 595.3), 72.0, int(Qt::AlignLeft), "Other");
        add("another", QSizeF(400, 400), 72.0, int(Qt::AlignLeft), "Other");
    }

    void dialogChangesSettings()
    {
        PageSettings settings;
        settings.header.option.setAlignment(Qt::AlignJustify);
        settings.footer.option.setAlignment(Qt::AlignJustify);
        const PageDialog dialog(settings, nullptr);
        const QList<QComboBox*> alignments = boxesWith(dialog, "Centre"_s);
        QCOMPARE(alignments.size(), 2);
        alignments.first()->setCurrentText("Centre"_s);
        QCOMPARE(int(dialog.settings().header.option.alignment()), int(Qt::AlignHCenter));
        QCOMPARE(int(dialog.settings().footer.option.alignment()), int(Qt::AlignJustify));

        QComboBox* const papers = boxesWith(dialog, "A4"_s).value(0);
        QVERIFY(papers);
        papers->setCurrentText("A4"_s);
        emit papers->activated(papers->currentIndex());
        // 210 mm by 297 mm
        const QSizeF paper = dialog.settings().page.paperSize;
        QCOMPARE(ORVRounding::halfAway(paper.width() * 20), 11906);
        QCOMPARE(ORVRounding::halfAway(paper.height() * 20), 16838);
        QCOMPARE(papers->currentText(), "A4"_s);
    }

    void marginsAndMarginTextsAreSaved()
    {
        edit()->setPlainText("text"_s);
        trigger<PageDialog>("Page set-up…", [](PageDialog* dialog) {
            dialog->findChild<QDoubleSpinBox*>("leftMargin"_s)->setValue(25.4);
            dialog->findChild<QLineEdit*>("header"_s)->setText("Title"_s);
            dialog->findChild<QLineEdit*>("footer"_s)->setText("Page <$p>"_s);
            dialog->accept();
        });
        QCOMPARE(saved(),
                 documentHead().replace("\\margl1800", "\\margl1440")
                     + "{\\header{\\pard\\ql{\\f0\\fs24 Title\\par}}}\n"
                       "{\\footer{\\pard\\ql{\\f0\\fs24 Page {\\chpgn}\\par}}}\n"
                     + firstParagraph() + run("text") + "}");
    }

    void cancelledDialogChangesNothing()
    {
        trigger<PageDialog>("Page set-up…", [](PageDialog* dialog) {
            dialog->findChild<QLineEdit*>("header"_s)->setText("Title"_s);
            dialog->reject();
        });
        QVERIFY(!document()->isModified());
        QCOMPARE(document()->dynamicPropertyNames(), QList<QByteArray>());
    }

    ORV_ROWS(previewShowsTheHeader)
    {
        const Rows add([this](const QString& header) {
            edit()->setPlainText("text"_s);
            PageSettings settings = PageSettings::of(*document());
            settings.header.text = header;
            settings.setOn(document());
            PageView view(*document());
            // The whole of a Letter page, which is 816 by 1056 pixels, with a gap of 16 around it.
            view.setFrameShape(QFrame::NoFrame);
            view.resize(816 + 2 * 16, 1056 + 2 * 16);
            view.show();
            QVERIFY(QTest::qWaitForWindowExposed(&view));
            const QImage image = view.viewport()->grab().toImage();
            const QPoint corner(16, 16);
            // The margins: 120 pixels at the sides, 96 above and below.
            const QRect text(120, 96, 576, 864);
            QCOMPARE(isPainted(image, QRect(120, 0, 576, 96).translated(corner)), !header.isEmpty());
            QVERIFY(isPainted(image, text.translated(corner)));
            QVERIFY(!isPainted(image, QRect(120, 960, 576, 96).translated(corner)));
        });
        add("header", "Title");
        add("none", QString());
    }

    void previewAndPdfHaveAllPages()
    {
        open("one\\page two");
        QCOMPARE(m_window->pageActions()->showPreview()->pageView()->pageCount(), 2);
        QVERIFY(!document()->isModified());

        QTemporaryDir folder;
        QFile file(folder.filePath("a.pdf"_s));
        QString message;
        QVERIFY2(PdfFile::save(file.fileName(), *document(), &message), qPrintable(message));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray pdf = file.readAll();
        QVERIFY(pdf.startsWith("%PDF-"));
        QCOMPARE(pdf.count("/Type /Page\n"), 2);
        // In points
        QVERIFY(pdf.contains("/MediaBox [0 0 612.000000 792.000000]"));
        QVERIFY(!PdfFile::save(folder.filePath("no folder/a.pdf"_s), *document(), &message));
        QCOMPARE(message, "No such file or directory"_s);
    }

private:
    /*! Pastes RTF with \a body. */
    void paste(const QByteArray& body)
    {
        QMimeData* mime = new QMimeData;
        mime->setData("text/rtf"_s, "{\\rtf1\\ansi " + body + "{}}");
        QApplication::clipboard()->setMimeData(mime);
        edit()->paste();
    }
};

ORV_TEST("editor_pages", TestEditorPages, QApplication)
#include "pages.moc"
