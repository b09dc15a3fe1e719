// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/ManualClock.h"
#include "demo/DemoCamera.h"
#include "model/CTreeItemValue.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

#include <atomic>
#include <memory>
#include <thread>

class ORXImgProcessingFeature;
class QAbstractButton;
class ZELCustomMessageBox;

// Base of tests of the window on the simulated demo camera. Each test function has a camera of its
// own, whose time stands still until the test moves the clock, an empty folder, and no settings of
// a host, and opens the window itself, which shows the features of all users.
class DemoPageTest : public GuardedTest
{
protected:
    static constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
    static constexpr int kImage = ORXMainFeatureWidget::ImageProcessingTab;
    // The colour matrix of the camera.
    static constexpr char kTransformation[] = "ColorTransformationEnable";
    static constexpr char kMatrixSelector[] = "ColorTransformationValueSelector";
    static constexpr char kMatrixValue[] = "ColorTransformationValue";

    void prepare() override;
    void finish() override;
    bool failsOnGuiThreadReads() const override { return true; }

    // `lacking`: features that the description does not list. A camera that the test has made
    // already is taken.
    void open(const QStringList& lacking = {}, int language = 0);
    // At the camera itself, past the window. An integer, an enumeration or a boolean is read.
    int write(const char* name, const char* text);
    qint64 read(const char* name) const;

    // Makes a camera that is slow to read a feature for all but passes, and counts the reads by
    // passes that find another entry of its selector selected. Before open().
    void watchSelection(const char* selector, qint64 selected, const char* feature);
    int strangeReads() const { return m_strangeReads; }

    ORXImgProcessingFeature* imagePage() const;
    // The image processing page's check box for an entry of a selector; null while there is none.
    QAbstractButton* box(const QByteArray& selector, int entry) const;
    // The tree's message box while it is shown, else null; and what it says.
    const ZELCustomMessageBox* messageBox() const;
    QString message() const;

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<DemoCamera> m_demo;
    std::unique_ptr<MeddledCamera> m_camera; // what the window talks to
    std::unique_ptr<PageWindow> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;

private:
    std::atomic<int> m_strangeReads{0};
};
