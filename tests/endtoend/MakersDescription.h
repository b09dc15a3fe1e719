// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

// A feature description as a maker's tool would write it, with registers behind every feature:
// groups, bit fields, converters, integers of 64 bits, floats of both sizes, texts, and two
// selectors of which one selects the other.
namespace MakersDescription {

// `modules` times eight features besides the ones whose names begin with "Maker".
QByteArray make(int modules);

} // namespace MakersDescription
