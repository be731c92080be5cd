#ifndef ORVPLATFORMGLOBAL_H
#define ORVPLATFORMGLOBAL_H

#include <QtCore/qglobal.h>

/*! Marks what the platform libraries OrvCore, OrvGui and OrvBase export. */
#if defined(ORV_PLATFORM_BUILD)
#define ORV_PLATFORM_EXPORT Q_DECL_EXPORT
#else
#define ORV_PLATFORM_EXPORT Q_DECL_IMPORT
#endif

#endif
