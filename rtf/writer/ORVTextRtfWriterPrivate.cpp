#include "ORVTextRtfWriter_p.h"

#include "ORVRounding_p.h"
#include "ORVRtfUnits_p.h"
#include "ORVTextFormat.h"
#include "ORVTextRtfWriter.h"
#include "QtFontCompat_p.h"
#include "TextDocSupport.h"

#include <QtCore/QIODevice>
#include <QtCore/QScopedPointer>
#include <QtGui/QTextDocument>

using namespace ORVRtfUnits;

namespace {

// Values of the pitch word.
const int fixedPitch = 1;
const int variablePitch = 2;

/*! The family word tells programs how to replace a font that is not installed. */
ORVTextRtfCommon::KeyWord familyWord(const QFont& font)
{
    const QString family = compat::family(font).toLower();
    if (family.contains(QLatin1String("symbol")) || family.contains(QLatin1String("dingbat")))
        return ORVTextRtfCommon::TechFont;
    if (family.contains(QLatin1String("script")))
        return ORVTextRtfCommon::ScriptFont;
    switch (font.styleHint()) {
    case QFont::Serif: return ORVTextRtfCommon::RomanFont;
    case QFont::SansSerif: return ORVTextRtfCommon::SwissFont;
    case QFont::TypeWriter: return ORVTextRtfCommon::ModernFont;
    case QFont::Decorative: return ORVTextRtfCommon::DecorFont;
    default: return ORVTextRtfCommon::NilFont;
    }
}

/*! A margin property of \a document, in points, as twips. */
int marginInTwips(const QTextDocument* document, const char* name, int missing)
{
    const QVariant property = document->property(name);
    return property.isValid() ? ORVRounding::halfAway(property.toDouble() * twipsPerPoint) : missing;
}

} // namespace

bool ORVTextRtfWriterPrivate::write(const QTextDocument* document, bool inPlace)
{
    QIODevice* const device = m_output.device();
    if (!document || !device || (!device->isOpen() && !device->open(QIODevice::WriteOnly)))
        return false;
    m_noteCounter = 0;

    QScopedPointer<QTextDocument> copy;
    if (!inPlace)
        copy.reset(TextDocSupport::cloneDocumentQtStyle(document, nullptr));
    m_document = inPlace ? const_cast<QTextDocument*>(document) : copy.data();
    // Otherwise the undo history would record the changes below.
    m_document->setUndoRedoEnabled(false);
    TextDocSupport::clearDefaultTextOptionFlags(m_document);
    TextDocSupport::normalizePageBreaks(m_document);

    // From the original: the copy that the platform makes need not have these properties.
    readPageSetup(document);
    const bool begun = writeHeader();
    if (begun) {
        createTables();
        writeDocumentSettings(document);
        processDocument(m_document, Write);
        m_output.closeGroup();
        m_output.flush();
    }
    // Lists belong to the documents, which end here.
    m_noteDocuments.clear();
    m_lists.clear();
    m_document = nullptr;
    m_text = ORVRtfTextSource();
    return begun;
}

bool ORVTextRtfWriterPrivate::writeHeader()
{
    m_output.begin();
    m_output.openGroup();
    m_output.write(RtfVersion, 1);
    m_output.write(AnsiCharSet);
    m_output.write(AnsiCodePage, 1252);
    m_output.write(UnicodeCharacterBytes, 1);
    m_output.write(DefaultFontNumber, 0);
    m_output.writeStructure('\n');
    // A device that refuses the first bytes is noticed before the document is walked.
    return m_output.flush();
}

void ORVTextRtfWriterPrivate::readPageSetup(const QTextDocument* document)
{
    const QSize paper = ORVTextRtfWriter::paperSizeForDocument(document);
    m_page.paperWidth = paper.width();
    m_page.paperHeight = paper.height();
    m_page.topMargin = marginInTwips(document, "topMargin", defaultTopMargin);
    m_page.leftMargin = marginInTwips(document, "leftMargin", defaultLeftMargin);
    m_page.rightMargin = marginInTwips(document, "rightMargin", defaultRightMargin);
    m_page.bottomMargin = marginInTwips(document, "bottomMargin", defaultBottomMargin);
    m_header = qvariant_cast<ORVTextPage>(document->property("header"));
    m_footer = qvariant_cast<ORVTextPage>(document->property("footer"));
}

void ORVTextRtfWriterPrivate::processDocument(QTextDocument* document, Pass pass)
{
    m_paragraph = ParagraphState();
    m_text = ORVRtfTextSource(document);
    processFrame(document->rootFrame(), pass);
}

/*!
    Collects what the document uses, and writes the tables of the header that its body refers to by number:
    fonts, colours and lists. QTextTables are written by processTable().
*/
void ORVTextRtfWriterPrivate::createTables()
{
    m_fonts.insertFirst(compat::font(ORVTextFormat::defaultCharFormat(m_document)));
    collectPageFont(m_header);
    collectPageFont(m_footer);
    processDocument(m_document, Collect);

    writeFontTable();
    writeColorTable();
    writeListTemplates();
}

void ORVTextRtfWriterPrivate::collectPageFont(const ORVTextPage& page)
{
    if (!page.text.isEmpty() && !m_fonts.contains(page.font))
        m_fonts.append(page.font);
}

void ORVTextRtfWriterPrivate::writeFontTable()
{
    m_output.openGroup();
    m_output.write(FontTable);
    const QList<QFont>& fonts = m_fonts.fonts();
    for (int i = 0; i < fonts.size(); ++i) {
        const QFont& font = fonts.at(i);
        m_output.openGroup();
        m_output.write(Font, i);
        m_output.write(familyWord(font));
        m_output.write(FontCharSet, fontCharset(font));
        m_output.write(FontPitchType, font.fixedPitch() ? fixedPitch : variablePitch);
        m_output.writePrintableCharacters(compat::family(font), i, true, false, QString());
        m_output.writeStructure(';');
        m_output.closeGroup();
    }
    m_output.closeGroup();
    m_output.writeStructure('\n');
}

void ORVTextRtfWriterPrivate::writeColorTable()
{
    m_output.openGroup();
    m_output.write(ColorTable);
    m_output.writeStructure(';');
    for (QRgb color : m_colors.colors()) {
        m_output.write(Red, qRed(color));
        m_output.write(Green, qGreen(color));
        m_output.write(Blue, qBlue(color));
        m_output.writeStructure(';');
    }
    m_output.closeGroup();
    m_output.writeStructure('\n');
}

void ORVTextRtfWriterPrivate::writeDocumentSettings(const QTextDocument* document)
{
    m_output.write(PaperWidth, m_page.paperWidth);
    m_output.write(PaperHeight, m_page.paperHeight);
    m_output.write(LeftMargin, m_page.leftMargin);
    m_output.write(RightMargin, m_page.rightMargin);
    m_output.write(TopMargin, m_page.topMargin);
    m_output.write(BottomMargin, m_page.bottomMargin);
    // Both kinds of notes may occur: footnotes at the bottom of the page, endnotes at the end of the
    // document.
    m_output.write(FootnoteEndnoteType, 2);
    m_output.write(FootnotesAtBottomOfPage);
    m_output.write(EndnotesAtEndOfDocument);
    m_output.writeStructure('\n');

    if (document->property("notOnFirstPage").toBool())
        m_output.write(TitlePage);
    m_output.write(PageNumberRestart);
    // Counting from 0 gives the second page the number 1.
    m_output.write(PageNumberStart, document->property("countFirstPage").toBool() ? 1 : 0);
    writePageFooterOrHeader(Header, m_header);
    writePageFooterOrHeader(Footer, m_footer);
}

void ORVTextRtfWriterPrivate::writePageFooterOrHeader(KeyWord which, const ORVTextPage& page)
{
    if (page.text.isEmpty())
        return;
    m_output.openGroup();
    m_output.write(which);
    m_output.openGroup();
    m_output.write(ResetParagraph);
    switch (int(page.option.alignment()) & 0xF) {
    case Qt::AlignRight: m_output.write(RightAlignParagraph); break;
    case Qt::AlignHCenter: m_output.write(CenterParagraph); break;
    case Qt::AlignLeft: m_output.write(LeftAlignParagraph); break;
    default: break;
    }
    m_output.openGroup();
    m_output.write(Font, m_fonts.number(page.font));
    m_output.write(FontSize, ORVRtfOutputFonts::halfPoints(page.font));
    m_output.writePrintableCharacters(page.text, 0, true, false, QString());
    m_output.write(NewParagraph);
    m_output.closeGroup();
    m_output.closeGroup();
    m_output.closeGroup();
    m_output.writeStructure('\n');
}
