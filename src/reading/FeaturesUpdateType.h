// SPDX-License-Identifier: Apache-2.0
#pragma once

// What a reading pass covers.
enum _FEATURES_UPDATE_TYPE_ {
    FEATURES_UPDATE_ALL = 0,         // every item once, in name order
    FEATURES_UPDATE_INVALIDATED = 1, // a queue of names, which may grow while the pass runs
    FEATURES_UPDATE_TL_LOCKED = 2,   // the features that acquisition locks, once
    FEATURES_UPDATE_POLLING = 3      // an endless loop over the polled features
};
