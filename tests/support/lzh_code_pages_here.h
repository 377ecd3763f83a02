// The code pages of the system that the tests run on.
#pragma once

#ifdef _WIN32
#include "platform/win32/lzh_code_pages.h"
#else
#include "platform/posix/iconv_code_pages.h"
#endif

namespace tamblin::lzh {

#ifdef _WIN32
using CodePagesHere = LzhCodePages;
#else
using CodePagesHere = IconvCodePages;
#endif

} // namespace tamblin::lzh
