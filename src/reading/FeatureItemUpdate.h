// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"
#include "reading/FeatureDecider.h"
#include "reading/FeatureDocText.h"
#include "reading/FeatureValueReader.h"
#include "reading/ReadingPass.h"

#include <atomic>

class ORXPropertyTreeItem;
class StopRequest;

// Brings one item in line with the camera: access, visibility, value, attributes, description
// texts. Belongs to one reading thread.
//
// | operation                   | thread | lock                                         |
// |-----------------------------|--------|----------------------------------------------|
// | setNodes                    | GUI    | none; only while no pass runs                |
// | setCameraID, setUserLevel   | GUI    | none (atomic); a running update goes on with |
// |                             |        | them                                         |
// | isKnownVisible              | any    | none; only while setNodes is not called      |
// | update                      | worker | the feature mutex, held by the caller        |
class FeatureItemUpdate
{
public:
    // `stop` is the worker's; not owned.
    explicit FeatureItemUpdate(const StopRequest& stop);

    void setNodes(const FeatureNodeMap& nodes);
    // The key that goes to the views.
    void setCameraID(qint64 cameraId) { m_lCameraID = cameraId; }
    void setUserLevel(int level) { m_nUserLevel = level; }
    // Whether the feature exists and is not "Invisible".
    bool isKnownVisible(const QString& name) const;

    // True when what views show of the item changed.
    bool update(ORXPropertyTreeItem* item, ReadingPass::UpdateFlags flags);

private:
    bool updateVisibility(const FeatureNode& node, ORXPropertyTreeItem* item, bool available,
                          const QString& visibility);
    bool updateAttributes(const FeatureNodePtr& node, ORXPropertyTreeItem* item, bool available,
                          bool modeReadOnly);

    const StopRequest& m_stop; // Not owned.
    std::atomic<qint64> m_lCameraID{-1};
    std::atomic<int> m_nUserLevel{1};
    FeatureNodeMap m_nodes; // set while no pass runs
    // The worker's own.
    FeatureDecider m_decider;
    FeatureValueReader m_reader;
    FeatureDocText m_docText;
};
