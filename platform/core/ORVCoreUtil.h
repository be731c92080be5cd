#ifndef ORVCOREUTIL_H
#define ORVCOREUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

/*! Temporary files. */
namespace ORVCoreUtil {

/*!
    A path in QDir::tempPath() that no file had a moment ago, ending in "." and \a suffix (in nothing when
    \a suffix is empty). The file is not created; every call gives another path. Thread-safe.
*/
ORV_PLATFORM_EXPORT QString GetNewTempFilePath(const QString& suffix);

} // namespace ORVCoreUtil

#endif
