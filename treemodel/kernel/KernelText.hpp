#pragma once

#include <QString>
#include <string>

/// A name or word of the kernel, which is UTF-8 and ends at its first zero byte.
inline QString kernel_text(const std::string& text)
{
    return QString::fromUtf8(text.c_str());
}
