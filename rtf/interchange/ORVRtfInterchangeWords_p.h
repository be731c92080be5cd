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
    X(EndnoteSeparator, "\\aftnsep") \
    X(ContinuedEndnoteSeparator, "\\aftnsepc") \
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
    /* Fields */ \
    X(FormField, "\\formfield") \
    X(FormFieldResult, "\\ffres") \
    X(FormFieldDefault, "\\ffdefres")
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
