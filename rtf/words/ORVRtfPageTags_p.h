#ifndef ORVRTFPAGETAGS_P_H
#define ORVRTFPAGETAGS_P_H

/*! What stands for page numbers in the texts of a document. */
namespace ORVRtfPageTags {

constexpr char pageNumber[] = "<$p>";
constexpr char pageCount[] = "<$pagecount>";

} // namespace ORVRtfPageTags

#endif
