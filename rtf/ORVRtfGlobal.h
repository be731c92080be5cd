#ifndef ORVRTFGLOBAL_H
#define ORVRTFGLOBAL_H

#include <QtCore/qglobal.h>

/*! Marks the classes, functions and data that libOrvRtf exports; everything else stays hidden. */
#if defined(ORV_RTF_BUILD)
#define ORV_RTF_EXPORT Q_DECL_EXPORT
#else
#define ORV_RTF_EXPORT Q_DECL_IMPORT
#endif

#endif
