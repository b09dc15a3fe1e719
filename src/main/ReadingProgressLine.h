// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

// The thin line under the tabs that shows how far a pass over the whole tree is, with the numbers
// as its tool tip. Keeps its height while nothing is read, so that the page below never moves.
// Owned by the main widget; GUI thread.
class ReadingProgressLine : public QWidget
{
    Q_OBJECT
public:
    explicit ReadingProgressLine(QWidget* parent);

    struct Progress
    {
        int done = 0;
        int total = 0; // 0: nothing is read
    };
    // Asked ten times a second while the line is visible.
    void setSource(const std::function<Progress()>& source) { m_source = source; }

    // What is shown: 0 to 1, or less than 0 when nothing is read.
    double fraction() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void showTexts();

    std::function<Progress()> m_source;
    Progress m_progress;
    QTimer m_timer;
};
