// SPDX-License-Identifier: Apache-2.0
#include "tree/IFeatureTreeFinder.h"

namespace {

IFeatureTreeFinder* s_finder = nullptr; // Not owned.

} // namespace

IFeatureTreeFinder* IFeatureTreeFinder::instance()
{
    return s_finder;
}

void IFeatureTreeFinder::install(IFeatureTreeFinder* finder)
{
    s_finder = finder;
}
