// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ccm/ColorMatrix.h"
#include "ccm/ORXCCMWidget.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/Literals.h"
#include "tree/QPropertyLineEdit.h"

#include <QPointer>
#include <QTest>

#include <memory>

// A matrix with its editor in a window of its own, driven as the page drives it.
class ShownMatrix
{
public:
    using Item = ORXPropertyTreeItem;

    // Makes of two items a matrix and its switch, as a page does it.
    static CTreeCustomCCMItemValue* tie(Item& item, Item& enable)
    {
        enable.setTagName("Boolean"_s);
        item.setTagName("CustomTagNameCCM"_s);
        auto* value = static_cast<CTreeCustomCCMItemValue*>(item.value());
        value->m_lCameraID = 1;
        value->m_pEnableItem = &enable;
        return value;
    }

    explicit ShownMatrix(CTreeCustomCCMItemValue::State state = CTreeCustomCCMItemValue::InCamera)
    {
        auto* value = tie(item, enable);
        value->m_nState = state;
        matrix = std::make_unique<ColorMatrix>(1, state == CTreeCustomCCMItemValue::InCamera,
                                               &enable, nullptr);
        value->m_pMatrix = matrix.get();
        widget = new ORXCCMWidget(&item, &window);
        widget->resize(360, 122);
        window.show();
    }

    QPropertyLineEdit* cell(int index) const
    {
        return window.findChild<QPropertyLineEdit*>("CCMValue%1"_s.arg(index));
    }
    QStringList texts() const
    {
        QStringList all;
        for (int i = 0; i < ORXRWCCMValue::kCoefficients; ++i)
            all += cell(i)->text();
        return all;
    }
    bool isOn() const { return enable.value()->value().toBool(); }
    bool read()
    {
        updateData();
        return QTest::qWaitFor([this] { return cell(0)->isEnabled(); });
    }
    // As the page: when it comes into sight, and when the camera has changed.
    void updateData()
    {
        if (m_bShown)
            widget->updateData();
        m_bShown = true;
        matrix->setShown(true);
    }
    bool becomesKnown()
    {
        updateData();
        return QTest::qWaitFor([this] { return matrix->isKnown(); });
    }
    // As the page writes a switch that the user pressed.
    void userSwitches(bool on)
    {
        enable.value()->setValue(on);
        matrix->switchTo(on);
    }
    void enter(int index, const char* text)
    {
        cell(index)->selectAll();
        QTest::keyClicks(cell(index), QString::fromLatin1(text));
        QTest::keyClick(cell(index), Qt::Key_Return);
    }

    Item enable{nullptr, Item::ImageProcessingPage};
    Item item{nullptr, Item::ImageProcessingPage};
    std::unique_ptr<ColorMatrix> matrix;
    QWidget window;
    QPointer<ORXCCMWidget> widget;

private:
    bool m_bShown = false;
};
