/*
    To be preloaded: makes this system one that has no files without a name, as some file systems have none,
    so that what is being written has a name that a test can see.
*/

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>

extern "C" __attribute__((visibility("default"))) int open64(const char* path, int flags, ...)
{
    typedef int (*Open)(const char* path, int flags, ...);
    static const Open systemOpen = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "open64"));
    if ((flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    return systemOpen(path, flags, mode);
}
