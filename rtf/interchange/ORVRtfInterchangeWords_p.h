#ifndef ORVRTFINTERCHANGEWORDS_P_H
#define ORVRTFINTERCHANGEWORDS_P_H

/*!
    Control words that only the interchange form knows. In the storage form, and for the stripper, they are
    unknown: that decides which groups are skipped and what stays in stripped files.
*/
namespace ORVRtfInterchangeWords {

// clang-format off
#define ORV_INTERCHANGE_WORDS(X) \
    /* Encoding */ \
    X(Mac, "\\mac") \
    X(Pc, "\\pc") \
    X(Pca, "\\pca") \
    /* Text */ \
    X(CarriageReturn, "\\\r") \
    X(EmSpace, "\\emspace") \
    X(EnSpace, "\\enspace") \
    X(QuarterSpace, "\\qmspace") \
    X(ZeroWidthJoiner, "\\zwj") \
    X(ZeroWidthNonJoiner, "\\zwnj") \
    X(ZeroWidthBreak, "\\zwbo") \
    X(ZeroWidthNoBreak, "\\zwnbo") \
    X(LeftToRightMark, "\\ltrmark") \
    X(RightToLeftMark, "\\rtlmark") \
    X(SectionEnd, "\\sect") \
    X(ColumnBreak, "\\column") \
    /* Borders */ \
    X(LineThick, "\\brdrth") \
    X(LineShadowed, "\\brdrsh") \
    X(LineDouble, "\\brdrdb") \
    X(LineDotted, "\\brdrdot") \
    X(LineDashed, "\\brdrdash") \
    X(LineHair, "\\brdrhair") \
    X(LineSmallDashes, "\\brdrdashsm") \
    X(LineDotDash, "\\brdrdashd") \
    X(LineDotDotDash, "\\brdrdashdd") \
    X(LineInset, "\\brdrinset") \
    X(LineOutset, "\\brdroutset") \
    X(LineTriple, "\\brdrtriple") \
    X(LineThinThickSmall, "\\brdrtnthsg") \
    X(LineThickThinSmall, "\\brdrthtnsg") \
    X(LineThinThickThinSmall, "\\brdrtnthtnsg") \
    X(LineThinThickMedium, "\\brdrtnthmg") \
    X(LineThickThinMedium, "\\brdrthtnmg") \
    X(LineThinThickThinMedium, "\\brdrtnthtnmg") \
    X(LineThinThickLarge, "\\brdrtnthlg") \
    X(LineThickThinLarge, "\\brdrthtnlg") \
    X(LineThinThickThinLarge, "\\brdrtnthtnlg") \
    X(LineWavy, "\\brdrwavy") \
    X(LineDoubleWavy, "\\brdrwavydb") \
    X(LineStriped, "\\brdrdashdotstr") \
    X(LineEmbossed, "\\brdremboss") \
    X(LineEngraved, "\\brdrengrave") \
    X(LineFrame, "\\brdrframe") \
    X(LineNone, "\\brdrnone") \
    X(LineNoneOfTable, "\\brdrtbl") \
    X(LineSpacing, "\\brsp") \
    X(ParagraphBorderTop, "\\brdrt") \
    X(ParagraphBorderBottom, "\\brdrb") \
    X(ParagraphBorderLeft, "\\brdrl") \
    X(ParagraphBorderRight, "\\brdrr") \
    X(ParagraphBox, "\\box") \
    X(BorderBetween, "\\brdrbtw") \
    X(BorderBar, "\\brdrbar") \
    X(TextBorder, "\\chbrdr") \
    X(PageBorderTop, "\\pgbrdrt") \
    X(PageBorderBottom, "\\pgbrdrb") \
    X(PageBorderLeft, "\\pgbrdrl") \
    X(PageBorderRight, "\\pgbrdrr") \
    X(CellDiagonalDown, "\\cldglu") \
    X(CellDiagonalUp, "\\cldgll") \
    X(RowBorderHorizontal, "\\trbrdrh") \
    X(RowBorderVertical, "\\trbrdrv") \
    /* Look of tables */ \
    X(RowHeader, "\\trhdr") \
    X(RowLeft, "\\trql") \
    X(RowCentered, "\\trqc") \
    X(RowRight, "\\trqr") \
    X(RowIndent, "\\tblind") \
    X(RowIndentUnit, "\\tblindtype") \
    X(RowWidth, "\\trwWidth") \
    X(RowWidthUnit, "\\trftsWidth") \
    X(RowPaddingTop, "\\trpaddt") \
    X(RowPaddingBottom, "\\trpaddb") \
    X(RowPaddingLeft, "\\trpaddl") \
    X(RowPaddingRight, "\\trpaddr") \
    X(RowPaddingTopUnit, "\\trpaddft") \
    X(RowPaddingBottomUnit, "\\trpaddfb") \
    X(RowPaddingLeftUnit, "\\trpaddfl") \
    X(RowPaddingRightUnit, "\\trpaddfr") \
    X(RowBackground, "\\trcbpat") \
    X(RowPatternColor, "\\trcfpat") \
    X(RowShading, "\\trshdng") \
    X(CellWidth, "\\clwWidth") \
    X(CellWidthUnit, "\\clftsWidth") \
    X(CellPaddingTopUnit, "\\clpadft") \
    X(CellPaddingBottomUnit, "\\clpadfb") \
    X(CellPaddingLeftUnit, "\\clpadfl") \
    X(CellPaddingRightUnit, "\\clpadfr") \
    X(CellPatternColor, "\\clcfpat") \
    X(CellShading, "\\clshdng") \
    X(CellRawBackground, "\\clcbpatraw") \
    X(CellRawPatternColor, "\\clcfpatraw") \
    X(CellRawShading, "\\clshdngraw") \
    /* Formats of text */ \
    X(AllCaps, "\\caps") \
    X(DoubleStrikeThrough, "\\striked") \
    X(UnderlineThick, "\\ulth") \
    X(UnderlineThickDot, "\\ulthd") \
    X(UnderlineThickDash, "\\ulthdash") \
    X(UnderlineThickDashDot, "\\ulthdashd") \
    X(UnderlineThickDashDotDot, "\\ulthdashdd") \
    X(UnderlineLongDash, "\\ulldash") \
    X(UnderlineThickLongDash, "\\ulthldash") \
    X(UnderlineHeavyWave, "\\ulhwave") \
    X(UnderlineDoubleWave, "\\ululdbwave") \
    X(Overline, "\\ol") \
    X(LetterSpacingQuarters, "\\expnd") \
    X(LetterSpacing, "\\expndtw") \
    X(CharacterScale, "\\charscalex") \
    X(Kerning, "\\kerning") \
    X(TextBackground, "\\chcbpat") \
    X(TextPatternColor, "\\chcfpat") \
    X(TextShading, "\\chshdng") \
    X(Language, "\\lang") \
    X(DefaultLanguage, "\\deflang") \
    X(AssociatedSize, "\\afs") \
    X(AssociatedBold, "\\ab") \
    X(AssociatedItalic, "\\ai") \
    X(AlternativeFont, "\\falt") \
    /* Formats of paragraphs */ \
    X(OutlineLevel, "\\outlinelevel") \
    X(ParagraphStyle, "\\s") \
    X(ContextualSpace, "\\contextualspace") \
    X(ParagraphBackground, "\\cbpat") \
    X(ParagraphPatternColor, "\\cfpat") \
    X(ParagraphShading, "\\shading") \
    X(TabLeaderDots, "\\tldot") \
    X(TabLeaderMiddleDots, "\\tlmdot") \
    X(TabLeaderHyphens, "\\tlhyph") \
    X(TabLeaderLine, "\\tlul") \
    X(TabLeaderThickLine, "\\tlth") \
    X(TabLeaderEquals, "\\tleq") \
    X(DefaultTabDistance, "\\deftab") \
    /* Sections */ \
    X(SectionReset, "\\sectd") \
    X(SectionColumns, "\\cols") \
    X(SectionInline, "\\sbknone") \
    X(SectionColumn, "\\sbkcol") \
    X(SectionPage, "\\sbkpage") \
    X(SectionEvenPage, "\\sbkeven") \
    X(SectionOddPage, "\\sbkodd") \
    /* What is not shown */ \
    X(Hidden, "\\v") \
    X(Deleted, "\\deleted") \
    X(IndexEntry, "\\xe") \
    X(IndexRange, "\\rxe") \
    X(IndexText, "\\txe") \
    X(IndexNumber, "\\bxe") \
    X(ContentsEntry, "\\tc") \
    X(FootnoteSeparator, "\\ftnsep") \
    X(ContinuedFootnoteSeparator, "\\ftnsepc") \
    X(FootnoteNotice, "\\ftncn") \
    X(EndnoteSeparator, "\\aftnsep") \
    X(ContinuedEndnoteSeparator, "\\aftnsepc") \
    X(EndnoteNotice, "\\aftncn") \
    X(Private, "\\private") \
    /* Pictures */ \
    X(DeviceIndependentBitmap, "\\dibitmap") \
    X(DeviceBitmap, "\\wbitmap") \
    X(BitmapBitsPerPixel, "\\wbmbitspixel") \
    X(BitmapPlanes, "\\wbmplanes") \
    X(BitmapRowBytes, "\\wbmwidthbytes") \
    X(EnhancedMetafile, "\\emfblip") \
    X(MacPicture, "\\macpict") \
    X(PmMetafile, "\\pmmetafile") \
    X(CropLeft, "\\piccropl") \
    X(CropTop, "\\piccropt") \
    X(CropRight, "\\piccropr") \
    X(CropBottom, "\\piccropb") \
    X(ShapeInstance, "\\shpinst") \
    X(ShapeLeft, "\\shpleft") \
    X(ShapeTop, "\\shptop") \
    X(ShapeRight, "\\shpright") \
    X(ShapeBottom, "\\shpbottom") \
    X(ShapeResult, "\\shprslt") \
    X(ShapeText, "\\shptxt") \
    X(ShapeProperty, "\\sp") \
    X(ShapePropertyName, "\\sn") \
    X(DrawnObject, "\\do") \
    X(DrawnText, "\\dptxbxtext") \
    /* Fields */ \
    X(FormField, "\\formfield") \
    X(FormFieldResult, "\\ffres") \
    X(FormFieldDefault, "\\ffdefres") \
    /* Notes */ \
    X(CommentDate, "\\atndate") \
    X(CommentTime, "\\atntime") \
    X(FootnoteStart, "\\ftnstart") \
    X(EndnoteStart, "\\aftnstart") \
    X(FootnoteDecimal, "\\ftnnar") \
    X(FootnoteLowerLetter, "\\ftnnalc") \
    X(FootnoteUpperLetter, "\\ftnnauc") \
    X(FootnoteLowerRoman, "\\ftnnrlc") \
    X(FootnoteUpperRoman, "\\ftnnruc") \
    X(FootnoteSymbol, "\\ftnnchi") \
    X(SectionFootnoteDecimal, "\\sftnnar") \
    X(SectionFootnoteLowerLetter, "\\sftnnalc") \
    X(SectionFootnoteUpperLetter, "\\sftnnauc") \
    X(SectionFootnoteLowerRoman, "\\sftnnrlc") \
    X(SectionFootnoteUpperRoman, "\\sftnnruc") \
    X(SectionFootnoteSymbol, "\\sftnnchi") \
    X(EndnoteDecimal, "\\aftnnar") \
    X(EndnoteLowerLetter, "\\aftnnalc") \
    X(EndnoteUpperLetter, "\\aftnnauc") \
    X(EndnoteLowerRoman, "\\aftnnrlc") \
    X(EndnoteUpperRoman, "\\aftnnruc") \
    X(EndnoteSymbol, "\\aftnnchi") \
    X(SectionEndnoteDecimal, "\\saftnnar") \
    X(SectionEndnoteLowerLetter, "\\saftnnalc") \
    X(SectionEndnoteUpperLetter, "\\saftnnauc") \
    X(SectionEndnoteLowerRoman, "\\saftnnrlc") \
    X(SectionEndnoteUpperRoman, "\\saftnnruc") \
    X(SectionEndnoteSymbol, "\\saftnnchi") \
    /* Pages */ \
    X(SectionPaperWidth, "\\pgwsxn") \
    X(SectionPaperHeight, "\\pghsxn") \
    X(SectionLeftMargin, "\\marglsxn") \
    X(SectionRightMargin, "\\margrsxn") \
    X(SectionTopMargin, "\\margtsxn") \
    X(SectionBottomMargin, "\\margbsxn") \
    /* Information */ \
    X(Title, "\\title") \
    X(Author, "\\author") \
    X(Operator, "\\operator") \
    X(Subject, "\\subject") \
    X(Keywords, "\\keywords") \
    X(DocumentComment, "\\doccomm") \
    X(Manager, "\\manager") \
    X(Company, "\\company") \
    X(Category, "\\category") \
    X(CreationTime, "\\creatim") \
    X(RevisionTime, "\\revtim") \
    X(PrintTime, "\\printim") \
    X(Year, "\\yr") \
    X(Month, "\\mo") \
    X(Day, "\\dy") \
    X(Hour, "\\hr") \
    X(Minute, "\\min") \
    X(Second, "\\sec") \
    /* Lists */ \
    X(ListOverrideStart, "\\listoverridestartat") \
    X(OldNumber, "\\pn") \
    X(OldNumberLevel, "\\pnlvl") \
    X(OldNumberBody, "\\pnlvlbody") \
    X(OldNumberBullet, "\\pnlvlblt") \
    X(OldNumberContinued, "\\pnlvlcont") \
    X(OldNumberDecimal, "\\pndec") \
    X(OldNumberUpperLetter, "\\pnucltr") \
    X(OldNumberLowerLetter, "\\pnlcltr") \
    X(OldNumberUpperRoman, "\\pnucrm") \
    X(OldNumberLowerRoman, "\\pnlcrm") \
    X(OldNumberStart, "\\pnstart") \
    X(OldNumberIndent, "\\pnindent") \
    X(OldNumberPrevious, "\\pnprev") \
    X(OldNumberFont, "\\pnf") \
    X(OldNumberTextBefore, "\\pntxtb") \
    X(OldNumberTextAfter, "\\pntxta")
// clang-format on

enum Word {
    None,
#define ORV_MEMBER(name, spelling) name,
    ORV_INTERCHANGE_WORDS(ORV_MEMBER)
#undef ORV_MEMBER
        WordCount
};

/*! The word of \a length bytes that begins with its backslash at \a spelling; None for all others. */
Word find(const char* spelling, int length);

} // namespace ORVRtfInterchangeWords

#endif
