#ifndef ORVCOREUTIL_H
#define ORVCOREUTIL_H

#include "ORVPlatformGlobal.h"

#include <QtCore/QString>

/*! Temporary files. */
namespace ORVCoreUtil {

/*!
    A path in QDir::tempPath() that no file had at the time of the call, ending in "." and \a suffix (or
    without ending when \a suffix is empty). The file is not created. Every call returns another path.
    Thread-safe.
*/
ORV_PLATFORM_EXPORT QString GetNewTempFilePath(const QString& suffix);

} // namespace ORVCoreUtil

#endif
