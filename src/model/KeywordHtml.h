// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

// Rich text of a name in which the occurrences of a search text are marked.
namespace KeywordHtml {

// `keyword` is looked for, ignoring case, in the escaped text; an empty one marks nothing.
QString mark(const QString& text, const QString& keyword);

} // namespace KeywordHtml
