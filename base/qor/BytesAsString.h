#pragma once

// The size of a file or a disk as people read it.

#include "qor/LightweightString.h"

enum BytesAsStringStyle {
    // "1536 bytes".
    BytesExact = 0,
    // "0 bytes", "1 byte", "512 bytes", then one decimal in binary units: "1.5 KB", "3.4 MB",
    // "5.0 GB", up to EB. A KB is 1024 bytes.
    BytesReadable = 1,
};

LightweightString<wchar_t> bytesAsString(unsigned long long bytes, int style);
