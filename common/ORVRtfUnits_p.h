#ifndef ORVRTFUNITS_P_H
#define ORVRTFUNITS_P_H

/*! RTF measures lengths in twips, documents in points. */
namespace ORVRtfUnits {

const double twipsPerPoint = 20.0;

/*! Height of a single line, in points: what multiples of the line spacing are stated against. */
const double singleLineHeight = 12.0;

/*! \a twips in points. */
inline double points(int twips)
{
    return twips / twipsPerPoint;
}

} // namespace ORVRtfUnits

#endif
