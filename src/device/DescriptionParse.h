// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/XmlDocument.h"

#include <functional>
#include <future>

// A camera's description, parsed on the loading lane while the caller does something else; at once,
// on the caller's thread, where the system gives no other. GUI thread.
class DescriptionParse
{
public:
    // What is made of the document before anybody else sees it, on the thread that parsed it.
    using Then = std::function<void(const XmlDocument&)>;

    // Begins. The text (UTF-8, not owned) must not change until finish() or destruction, which
    // wait; null is no description.
    explicit DescriptionParse(const char* xml, const Then& then = {});
    ~DescriptionParse();
    DescriptionParse(const DescriptionParse&) = delete;
    DescriptionParse& operator=(const DescriptionParse&) = delete;

    // Replaces `document`, by an empty one when the text does not parse, which is logged as
    // critical. Leaves it as it is without a description, and from the second time on.
    void finish(XmlDocument& document);

private:
    std::future<XmlDocument> m_parsed;
};
