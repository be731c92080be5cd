#ifndef ORVRTFKEYWORDS_H
#define ORVRTFKEYWORDS_H

#include "ORVRtfGlobal.h"

/*!
    The control words and control symbols that the library reads or writes: one row a word.

    X(name, spelling): \a name is the member of ORVTextRtfCommon::KeyWord and, with "Str" appended, the
    exported constant of ORVRtfKeywords; \a spelling includes the leading backslash. Enumeration, constants
    and lookup tables are all made from these rows, in this order.
*/
#define ORV_RTF_KEYWORDS(X) \
    /* Document header, fonts and colours */ \
    X(RtfVersion, "\\rtf") \
    X(AnsiCharSet, "\\ansi") \
    X(AnsiCodePage, "\\ansicpg") \
    X(CodePage, "\\cpg") \
    X(FontCharSet, "\\fcharset") \
    X(DefaultFontNumber, "\\deff") \
    X(FontTable, "\\fonttbl") \
    X(ColorTable, "\\colortbl") \
    X(Red, "\\red") \
    X(Blue, "\\blue") \
    X(Green, "\\green") \
    X(ForegroundColor, "\\cf") \
    X(BackgroundColor, "\\cb") \
    X(HighlightColor, "\\highlight") \
    X(RomanFont, "\\froman") \
    X(NilFont, "\\fnil") \
    X(SwissFont, "\\fswiss") \
    X(ModernFont, "\\fmodern") \
    X(ScriptFont, "\\fscript") \
    X(DecorFont, "\\fdecor") \
    X(TechFont, "\\ftech") \
    X(BidirectionalFont, "\\fbidi") \
    /* Unicode and special characters */ \
    X(UnicodeCharacterBytes, "\\uc") \
    X(UnicodeCharacterValue, "\\u") \
    X(ExtendedCharacterValue, "\\'") \
    X(NonBreakableSpace, "\\~") \
    X(OptionalHyphen, "\\-") \
    X(NonBreakingHyphen, "\\_") \
    X(OptionalDestination, "\\*") \
    X(CompatibilityText, "\\upr") \
    X(UnicodeText, "\\ud") \
    X(EscapedSlash, "\\\\") \
    X(EscapedOpenBrace, "\\{") \
    X(EscapedCloseBrace, "\\}") \
    X(TabCharacter, "\\tab") \
    X(LeftQuote, "\\lquote") \
    X(RightQuote, "\\rquote") \
    X(LeftDoubleQuote, "\\ldblquote") \
    X(RightDoubleQuote, "\\rdblquote") \
    X(EnDash, "\\endash") \
    X(EmDash, "\\emdash") \
    X(Bullet, "\\bullet") \
    X(SoftLineBreak, "\\line") \
    /* Frames */ \
    X(FrameWidth, "\\absw") \
    X(FrameHeight, "\\absh") \
    X(FrameNoWrap, "\\nowrap") \
    X(FramePositionLeft, "\\posxl") \
    X(FramePositionCenter, "\\posxc") \
    X(FramePositionRight, "\\posxr") \
    /* Binary data */ \
    X(BinaryData, "\\bin") \
    /* Character formatting */ \
    X(Font, "\\f") \
    X(FontSize, "\\fs") \
    X(FontPitchType, "\\fprq") \
    X(Italic, "\\i") \
    X(Bold, "\\b") \
    X(Outline, "\\outl") \
    X(StrokeWidth, "\\strokewidth") \
    X(StrokeColor, "\\strokec") \
    X(SubScript, "\\sub") \
    X(SuperScript, "\\super") \
    X(NoSuperSubScript, "\\nosupersub") \
    X(StrikeThrough, "\\strike") \
    X(StrikeThroughColor, "\\strikec") \
    X(SmallCaps, "\\scaps") \
    X(NoUnderline, "\\ulnone") \
    X(UnderlineSolid, "\\ul") \
    X(UnderlineColor, "\\ulc") \
    X(UnderlineDot, "\\uld") \
    X(UnderlineDash, "\\uldash") \
    X(UnderlineDashDot, "\\uldashd") \
    X(UnderlineDashDotDot, "\\uldashdd") \
    X(UnderlineWave, "\\ulwave") \
    X(UnderlineWord, "\\ulw") \
    X(UnderlineDouble, "\\uldb") \
    /* Notes and annotations */ \
    X(FootnoteEndnoteType, "\\fet") \
    X(FootnotesAtBottomOfPage, "\\ftnbj") \
    X(EndnotesAtEndOfDocument, "\\aenddoc") \
    X(AnnotationCharacter, "\\chatn") \
    X(FootnoteCharacter, "\\chftn") \
    X(Annotation, "\\annotation") \
    X(AnnotationRef, "\\atnref") \
    X(AnnotationRefStart, "\\atrfstart") \
    X(AnnotationRefEnd, "\\atrfend") \
    X(AnnotationId, "\\atnid") \
    X(AnnotationAuthor, "\\atnauthor") \
    X(Footnote, "\\footnote") \
    X(AlternateFootnote, "\\ftnalt") \
    /* Fields and bookmarks */ \
    X(Field, "\\field") \
    X(FieldInstruction, "\\fldinst") \
    X(FieldResult, "\\fldrslt") \
    X(BookmarkStart, "\\bkmkstart") \
    X(BookmarkEnd, "\\bkmkend") \
    /* Paragraphs and breaks */ \
    X(NewParagraph, "\\par") \
    X(NewParagraphSymbol, "\\\n") \
    X(NewPage, "\\page") \
    X(ResetFormat, "\\plain") \
    X(ResetParagraph, "\\pard") \
    X(KeepParagraphIntact, "\\keep") \
    X(KeepParagraphWithNext, "\\keepn") \
    X(StartParagraphOnNewPage, "\\pagebb") \
    /* Tables */ \
    X(InTable, "\\intbl") \
    X(TableNesting, "\\itap") \
    X(TableRowDefinition, "\\trowd") \
    X(NestedTableRowDefinition, "\\nesttableprops") \
    X(TableRowCellPadding, "\\trgaph") \
    X(TableAutofit, "\\trautofit") \
    X(TableLeftOffset, "\\trleft") \
    X(TableRowBorderTop, "\\trbrdrt") \
    X(TableRowBorderLeft, "\\trbrdrl") \
    X(TableRowBorderRight, "\\trbrdrr") \
    X(TableRowBorderBottom, "\\trbrdrb") \
    X(CellMergeFirst, "\\clmgf") \
    X(CellMergePreceeding, "\\clmrg") \
    X(CellVerticalMergeFirst, "\\clvmgf") \
    X(CellVerticalMergePreceeding, "\\clvmrg") \
    X(CellBorderTop, "\\clbrdrt") \
    X(CellBorderLeft, "\\clbrdrl") \
    X(CellBorderRight, "\\clbrdrr") \
    X(CellBorderBottom, "\\clbrdrb") \
    X(CellVerticalAlignTop, "\\clvertalt") \
    X(CellVerticalAlignCenter, "\\clvertalc") \
    X(CellVerticalAlignBottom, "\\clvertalb") \
    X(TextVerticalAlignTop, "\\vertalt") \
    X(TextVerticalAlignCenter, "\\vertalc") \
    X(TextVerticalAlign, "\\vertal") \
    X(TextVerticalAlignBottom, "\\vertalb") \
    X(TextVerticalAlignJustified, "\\vertalj") \
    X(TextUp, "\\up") \
    X(TextDown, "\\dn") \
    X(CellPadTop, "\\clpadt") \
    X(CellPadLeft, "\\clpadl") \
    X(CellPadRight, "\\clpadr") \
    X(CellPadBottom, "\\clpadb") \
    X(CellRightBoundary, "\\cellx") \
    X(BorderWidth, "\\brdrw") \
    X(SingleWidthBorder, "\\brdrs") \
    X(BorderColor, "\\brdrcf") \
    X(NoBorder, "\\brdrnil") \
    X(NoCellShading, "\\clshdrawnil") \
    /* Tabs, indents, page and spacing */ \
    X(TabPosition, "\\tx") \
    X(FlushRightTab, "\\tqr") \
    X(CenteredTab, "\\tqc") \
    X(DecimalTab, "\\tqdec") \
    X(LeftIndent, "\\li") \
    X(TextIndent, "\\fi") \
    X(RightIndent, "\\ri") \
    X(LeftIndentI18n, "\\lin") \
    X(RightIndentI18n, "\\rin") \
    X(PaperWidth, "\\paperw") \
    X(PaperHeight, "\\paperh") \
    X(LeftMargin, "\\margl") \
    X(RightMargin, "\\margr") \
    X(TopMargin, "\\margt") \
    X(BottomMargin, "\\margb") \
    X(LineSpacing, "\\sl") \
    X(LineSpacingMultiple, "\\slmult") \
    X(SpaceBeforeParagraph, "\\sb") \
    X(SpaceAfterParagraph, "\\sa") \
    X(LeftAlignParagraph, "\\ql") \
    X(RightAlignParagraph, "\\qr") \
    X(CenterParagraph, "\\qc") \
    X(JustifyParagraph, "\\qj") \
    /* Direction and character sets */ \
    X(LeftToRightParagraph, "\\ltrpar") \
    X(RightToLeftParagraph, "\\rtlpar") \
    X(LeftToRightCharacters, "\\ltrch") \
    X(RightToLeftCharacters, "\\rtlch") \
    X(LowAnsiCharacters, "\\loch") \
    X(HighAnsiCharacters, "\\hich") \
    X(DoubleAnsiCharacters, "\\dbch") \
    X(AssociatedFont, "\\af") \
    /* Cell shading and table ends */ \
    X(BackgroundPatternColor, "\\clcbpat") \
    X(EndNestedCell, "\\nestcell") \
    X(EndNestedRow, "\\nestrow") \
    X(EndCell, "\\cell") \
    X(EndRow, "\\row") \
    X(LastRow, "\\lastrow") \
    X(NoNestTables, "\\nonesttables") \
    /* Pictures */ \
    X(NonShpPicture, "\\nonshppict") \
    X(ShpPicture, "\\shppict") \
    X(Picture, "\\pict") \
    X(PngData, "\\pngblip") \
    X(JpegData, "\\jpegblip") \
    X(WindowsMetaFile, "\\wmetafile") \
    X(PictureScaleX, "\\picscalex") \
    X(PictureScaleY, "\\picscaley") \
    X(PictureWidth, "\\picw") \
    X(PictureHeight, "\\pich") \
    X(PictureGoalWidth, "\\picwgoal") \
    X(PictureGoalHeight, "\\pichgoal") \
    X(PictureName, "\\nisusfilename") \
    X(OrvellinePdf, "\\orvellinepdf") \
    X(PdfFileName, "\\pdffilename") \
    X(MathMLEquation, "\\mathmlequation") \
    /* Lists */ \
    X(List, "\\list") \
    X(ListTable, "\\listtable") \
    X(HybridList, "\\listhybrid") \
    X(SimpleList, "\\listsimple") \
    X(ListName, "\\listname") \
    X(ListTemplateId, "\\listtemplateid") \
    X(ListId, "\\listid") \
    X(ListLevel, "\\listlevel") \
    X(ListLevelFormat, "\\levelnfc") \
    X(ListLevelFormatNew, "\\levelnfcn") \
    X(ListText, "\\listtext") \
    X(ListLevelText, "\\leveltext") \
    X(ListLevelTemplateId, "\\leveltemplateid") \
    X(ListLevelNumberOffsets, "\\levelnumbers") \
    X(ListLevelMarker, "\\levelmarker") \
    X(ListBulletPlainText, "\\pntext") \
    X(ListLevelJustification, "\\leveljc") \
    X(ListLevelJustificationNew, "\\leveljcn") \
    X(ListLevelTextFollow, "\\levelfollow") \
    X(ListLevelFirstItem, "\\levelstartat") \
    X(ListLevelTextFollowSpace, "\\levelspace") \
    X(ListLevelIndent, "\\levelindent") \
    X(ListOverrideTable, "\\listoverridetable") \
    X(ListOverrideItemCount, "\\listoverridecount") \
    X(ListOverrideIndex, "\\ls") \
    X(ListOverrideItem, "\\listoverride") \
    X(ListFormatOverrideLevel, "\\lfolevel") \
    X(BlockListLevel, "\\ilvl") \
    /* Styles and document information */ \
    X(StyleSheet, "\\stylesheet") \
    X(CharacterStyle, "\\cs") \
    X(MetaInformation, "\\info") \
    /* Headers, footers and page numbers */ \
    X(Footer, "\\footer") \
    X(FirstFooter, "\\footerf") \
    X(LeftFooter, "\\footerl") \
    X(RightFooter, "\\footerr") \
    X(Header, "\\header") \
    X(FirstHeader, "\\headerf") \
    X(LeftHeader, "\\headerl") \
    X(RightHeader, "\\headerr") \
    X(TitlePage, "\\titlepg") \
    X(PageNumberRestart, "\\pgnrestart") \
    X(PageNumberStart, "\\pgnstarts") \
    X(PageNumber, "\\chpgn") \
    /* The application's own revision marking */ \
    X(OrvellineRevisionLevel, "\\orvrevlvl")

/*! The spelling of each control word, with its leading backslash, as a NUL-terminated Latin-1 string. */
namespace ORVRtfKeywords {

#define ORV_DECLARE_SPELLING(name, spelling) extern ORV_RTF_EXPORT const char* name##Str;
ORV_RTF_KEYWORDS(ORV_DECLARE_SPELLING)
#undef ORV_DECLARE_SPELLING

} // namespace ORVRtfKeywords

#endif
