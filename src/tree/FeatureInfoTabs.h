// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTabWidget>

#include <functional>

// What stands below the rows of the whole tree: the description of the current feature first, and
// beside it what folders above add. Owned by its parent; GUI thread.
class FeatureInfoTabs : public QTabWidget
{
    Q_OBJECT
public:
    explicit FeatureInfoTabs(QWidget* parent);

    // Appends a panel, which belongs to the tabs from now on; `title` gives its words in the
    // interface language. `actions` stands beside the tabs while the panel is shown; may be null.
    void addPanel(QWidget* panel, const std::function<QString()>& title,
                  QWidget* actions = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showActions();

    QVector<std::function<QString()>> m_titles;
    QVector<QWidget*> m_actions; // Owned (children); null where a panel has none.
};
