#include "ORVRtfInterchangeReader_p.h"

#include "ORVRtfPageTags_p.h"
#include "ORVTabStops_p.h"
#include "ORVUnit.h"

#include <QtGui/QTextDocument>

namespace Words = ORVRtfInterchangeWords;

namespace {

/*! Words for the numbers of notes, of the document and of a section. */
struct NoteNumbers {
    Words::Word word;
    Words::Word sectionWord;
    ORVRtfNote::Kind kind;
    ORVRtfNoteMarks::Style style;
};

// Distances of tab stops, in twips.
const int defaultTabDistance = 720;
const int leastTabDistance = 20;
const int greatestTabDistance = 31680;
const double twipsPerInch = 1440;

const NoteNumbers noteNumbers[] = {
    {Words::FootnoteDecimal, Words::SectionFootnoteDecimal, ORVRtfNote::Footnote, ORVRtfNoteMarks::Decimal},
    {Words::FootnoteLowerLetter, Words::SectionFootnoteLowerLetter, ORVRtfNote::Footnote,
     ORVRtfNoteMarks::LowerLetter},
    {Words::FootnoteUpperLetter, Words::SectionFootnoteUpperLetter, ORVRtfNote::Footnote,
     ORVRtfNoteMarks::UpperLetter},
    {Words::FootnoteLowerRoman, Words::SectionFootnoteLowerRoman, ORVRtfNote::Footnote,
     ORVRtfNoteMarks::LowerRoman},
    {Words::FootnoteUpperRoman, Words::SectionFootnoteUpperRoman, ORVRtfNote::Footnote,
     ORVRtfNoteMarks::UpperRoman},
    {Words::FootnoteSymbol, Words::SectionFootnoteSymbol, ORVRtfNote::Footnote, ORVRtfNoteMarks::Symbol},
    {Words::EndnoteDecimal, Words::SectionEndnoteDecimal, ORVRtfNote::Endnote, ORVRtfNoteMarks::Decimal},
    {Words::EndnoteLowerLetter, Words::SectionEndnoteLowerLetter, ORVRtfNote::Endnote,
     ORVRtfNoteMarks::LowerLetter},
    {Words::EndnoteUpperLetter, Words::SectionEndnoteUpperLetter, ORVRtfNote::Endnote,
     ORVRtfNoteMarks::UpperLetter},
    {Words::EndnoteLowerRoman, Words::SectionEndnoteLowerRoman, ORVRtfNote::Endnote,
     ORVRtfNoteMarks::LowerRoman},
    {Words::EndnoteUpperRoman, Words::SectionEndnoteUpperRoman, ORVRtfNote::Endnote,
     ORVRtfNoteMarks::UpperRoman},
    {Words::EndnoteSymbol, Words::SectionEndnoteSymbol, ORVRtfNote::Endnote, ORVRtfNoteMarks::Symbol},
};

} // namespace

/*! Words for pages, their headers and footers, notes and bookmarks; false for all others. */
bool ORVRtfInterchangeReader::translateDocumentWord(KeyWord keyWord, int n)
{
    switch (keyWord) {
    case PaperWidth: setDocumentPage(&ORVRtfPage::paperWidth, n); break;
    case PaperHeight: setDocumentPage(&ORVRtfPage::paperHeight, n); break;
    case LeftMargin: setDocumentPage(&ORVRtfPage::leftMargin, n); break;
    case RightMargin: setDocumentPage(&ORVRtfPage::rightMargin, n); break;
    case TopMargin: setDocumentPage(&ORVRtfPage::topMargin, n); break;
    case BottomMargin: setDocumentPage(&ORVRtfPage::bottomMargin, n); break;

    case Header: beginPageText(ORVRtfPageTexts::Header, ORVRtfPageTexts::AllPages); break;
    case RightHeader: beginPageText(ORVRtfPageTexts::Header, ORVRtfPageTexts::RightPages); break;
    case LeftHeader: beginPageText(ORVRtfPageTexts::Header, ORVRtfPageTexts::LeftPages); break;
    case FirstHeader: beginPageText(ORVRtfPageTexts::Header, ORVRtfPageTexts::FirstPage); break;
    case Footer: beginPageText(ORVRtfPageTexts::Footer, ORVRtfPageTexts::AllPages); break;
    case RightFooter: beginPageText(ORVRtfPageTexts::Footer, ORVRtfPageTexts::RightPages); break;
    case LeftFooter: beginPageText(ORVRtfPageTexts::Footer, ORVRtfPageTexts::LeftPages); break;
    case FirstFooter: beginPageText(ORVRtfPageTexts::Footer, ORVRtfPageTexts::FirstPage); break;
    case TitlePage:
        m_pageTexts.isFirstPageSpecial = m_pageTexts.isFirstPageSpecial || m_isFirstSection;
        break;
    case PageNumberStart:
        if (m_isFirstSection)
            m_pageTexts.setFirstNumber(n);
        break;
    case PageNumber:
        if (isInPageText())
            m_pendingText += QLatin1String(ORVRtfPageTags::pageNumber);
        break;

    case Footnote: beginNote(ORVRtfNote::Footnote); break;
    case Annotation: beginNote(ORVRtfNote::Comment); break;
    case AlternateFootnote: setEndnote(); break;
    case FootnoteCharacter:
    case AnnotationCharacter: setNoteNumberPlace(); break;
    case AnnotationAuthor:
        m_commentAuthor.clear();
        openDestination(Destination(CommentAuthorGroup));
        break;
    case AnnotationId:
        m_commentInitials.clear();
        openDestination(Destination(CommentInitialsGroup));
        break;

    case BookmarkStart:
        m_bookmark.clear();
        openDestination(Destination(BookmarkNameGroup));
        break;
    case MetaInformation: openDestination(Destination(InformationGroup)); break;
    default: return false;
    }
    return true;
}

/*! The same for words of this form; false for all others. */
bool ORVRtfInterchangeReader::translatePrivateDocumentWord(Words::Word word, int n)
{
    typedef ORVRtfInformation Info;
    switch (word) {
    case Words::Title: openInformation(Info::Title); break;
    case Words::Author: openInformation(Info::Author); break;
    case Words::Operator: openInformation(Info::LastAuthor); break;
    case Words::Subject: openInformation(Info::Subject); break;
    case Words::Keywords: openInformation(Info::Keywords); break;
    case Words::DocumentComment: openInformation(Info::Comment); break;
    case Words::Manager: openInformation(Info::Manager); break;
    case Words::Company: openInformation(Info::Company); break;
    case Words::Category: openInformation(Info::Category); break;
    case Words::CreationTime: openInformation(Info::Created); break;
    case Words::RevisionTime: openInformation(Info::Modified); break;
    case Words::PrintTime: openInformation(Info::Printed); break;
    case Words::Year: m_time.year = n; break;
    case Words::Month: m_time.month = n; break;
    case Words::Day: m_time.day = n; break;
    case Words::Hour: m_time.hour = n; break;
    case Words::Minute: m_time.minute = n; break;
    case Words::Second: m_time.second = n; break;

    case Words::SectionPaperWidth: setSectionPage(&ORVRtfPage::paperWidth, n); break;
    case Words::SectionPaperHeight: setSectionPage(&ORVRtfPage::paperHeight, n); break;
    case Words::SectionLeftMargin: setSectionPage(&ORVRtfPage::leftMargin, n); break;
    case Words::SectionRightMargin: setSectionPage(&ORVRtfPage::rightMargin, n); break;
    case Words::SectionTopMargin: setSectionPage(&ORVRtfPage::topMargin, n); break;
    case Words::SectionBottomMargin: setSectionPage(&ORVRtfPage::bottomMargin, n); break;

    case Words::CommentDate:
        m_commentDate.clear();
        openDestination(Destination(CommentDateGroup));
        break;
    case Words::CommentTime:
        m_time = ORVRtfTime();
        openDestination(Destination(CommentTimeGroup));
        break;
    default: return translateNoteNumberWord(word, n);
    }
    return true;
}

/*! Words for the numbers of notes; false for all others. */
bool ORVRtfInterchangeReader::translateNoteNumberWord(Words::Word word, int n)
{
    if (word == Words::FootnoteStart || word == Words::EndnoteStart) {
        m_noteMarks.setStart(word == Words::FootnoteStart ? ORVRtfNote::Footnote : ORVRtfNote::Endnote, n);
        return true;
    }
    for (const NoteNumbers& numbers : noteNumbers) {
        if (numbers.word == word || numbers.sectionWord == word) {
            m_noteMarks.setStyle(numbers.kind, numbers.style);
            return true;
        }
    }
    return false;
}

void ORVRtfInterchangeReader::openInformation(ORVRtfInformation::Text text)
{
    if (!isIn(Destination(InformationGroup)))
        return;
    m_informationText = text;
    m_information.begin(text);
    openDestination(Destination(InformationTextGroup));
}

void ORVRtfInterchangeReader::openInformation(ORVRtfInformation::Date date)
{
    if (!isIn(Destination(InformationGroup)))
        return;
    m_informationDate = date;
    m_time = ORVRtfTime();
    openDestination(Destination(InformationDateGroup));
}

void ORVRtfInterchangeReader::setDocumentPage(int ORVRtfPage::*length, int twips)
{
    m_page.*length = twips;
    if (!m_statedLengths.contains(length))
        m_statedLengths.append(length);
}

/*! The page of the first section is that of a document that states none. */
void ORVRtfInterchangeReader::setSectionPage(int ORVRtfPage::*length, int twips)
{
    if (m_isFirstSection && !m_statedLengths.contains(length))
        m_page.*length = twips;
}

/*! The group of a destination ends that describes the document, a comment or a bookmark. */
void ORVRtfInterchangeReader::endDocumentDestination()
{
    switch (int(m_state.destination)) {
    case InformationDateGroup: m_information.setDate(m_informationDate, m_time.dateTime()); break;
    case BookmarkNameGroup: addAnchorName(); break;
    case CommentDateGroup: setCommentDate(ORVRtfTime::fromPacked(quint32(m_commentDate.toLongLong()))); break;
    case CommentTimeGroup: setCommentDate(m_time); break;
    default: break;
    }
}

/*! The date stands in the comment or, like the author, in front of it. */
void ORVRtfInterchangeReader::setCommentDate(const ORVRtfTime& time)
{
    if (!m_stories.empty() && m_stories.back().note.kind == ORVRtfNote::Comment)
        m_stories.back().note.date = time.dateTime();
    else
        m_commentTime = time;
}

void ORVRtfInterchangeReader::setDocumentProperties()
{
    m_page.setOn(m_document);
    m_pageTexts.setOn(m_document);
    m_information.setOn(m_document);
    m_document->setProperty("language",
                            m_defaultLanguage.isEmpty() ? QVariant() : QVariant(m_defaultLanguage));
    setTabDistance();
}

/*! Views have tab stops that are further apart than those of word processors. */
void ORVRtfInterchangeReader::setTabDistance()
{
    const int twips =
        m_tabDistance > 0 ? qBound(leastTabDistance, m_tabDistance, greatestTabDistance) : defaultTabDistance;
    QTextOption option = m_document->defaultTextOption();
    ORVTabStops::setDistance(option, twips * ORVUnit::screenResolution() / twipsPerInch);
    m_document->setDefaultTextOption(option);
}
