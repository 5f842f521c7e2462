#pragma once

#include <QtGlobal>

/// The size of what a test is about: @p small among all other tests, @p whole where there is time for it (the tests
/// labelled "prove", which set TAV_PROVE).
template<class Size>
Size proofSize(Size small, Size whole)
{
    return qEnvironmentVariableIsSet("TAV_PROVE") ? whole : small;
}
