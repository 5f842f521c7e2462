#include "TavFields.h"

const char *TavFields::unitOf(Kind kind)
{
    switch (kind) {
    case Kind::Percent:
        return "percent";
    case Kind::Permille:
        return "permille";
    case Kind::Hundredths:
        return "hundredths";
    case Kind::Size:
        return "bytes";
    case Kind::Duration:
        return "seconds";
    case Kind::Time:
        return "seconds since the epoch";
    default:
        return "";
    }
}
