// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QStringList>

#include <random>

class ORXFeatureTreeView;
class ORXPropertyTreeItem;
class OpenedWindow;
class QAbstractButton;
class QComboBox;
class QModelIndex;
class QWidget;

// A user in a hurry: does one thing after the other in the window, chosen by random numbers, and
// knows what he has entered. GUI thread.
class StormUser
{
public:
    explicit StormUser(std::mt19937& random)
        : m_random(random)
    {
    }

    void act(const OpenedWindow& window);
    // Leaves whatever editor the focus is in.
    void rest(const OpenedWindow& window);

    // What was entered and not yet taken, as the host's log names it: "set Width 640",
    // "set ReverseX ?" for a box.
    QStringList takeEntered();
    // True once he has switched on the trigger that executes "TriggerSoftware" by itself.
    bool triggersByItself() const { return m_triggersByItself; }
    // The last things done, oldest first.
    QStringList trace() const { return m_trace; }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }
    bool oneIn(int times) { return upTo(times - 1) == 0; }
    void note(const QString& text);
    void enter(const QString& name, const QString& value);

    QModelIndex rowInSight(const ORXFeatureTreeView* view);
    void edit(const OpenedWindow& window);
    void press(QAbstractButton* button, const QString& name);
    void choose(const QPointer<QComboBox>& box, const QString& name);
    void type(const QPointer<QWidget>& editor, const QString& name, const QString& text);
    void search(const OpenedWindow& window);
    void changeGroup(const OpenedWindow& window);
    void changeTab(const OpenedWindow& window);
    void changeLanguage(const OpenedWindow& window);
    void changeLevel(const OpenedWindow& window);
    void refresh(const OpenedWindow& window);
    void fold(const OpenedWindow& window);
    void favor(const OpenedWindow& window);
    void closeAndStart(const OpenedWindow& window);

    std::mt19937& m_random;
    QStringList m_entered;
    bool m_triggersByItself = false;
    QStringList m_trace;
};
