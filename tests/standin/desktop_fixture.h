#pragma once

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "standin/desktop/desktop_script.h"
#include "standin/desktop/main_window.h"
#include "standin/desktop/qt_text.h"
#include "standin/desktop/settings.h"
#include "tests/standin/playground.h"

/// The main window over a playground, on the screen.
class Desktop {
public:
    explicit Desktop(const QString& settingsFile = {}) : settings_(settingsFile) {
        playground_.plugin();
        window_ = std::make_unique<standin::MainWindow>(playground_.host(), settings_);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    Playground& playground() { return playground_; }
    standin::Host& host() { return playground_.host(); }
    Recorder& plugin() { return playground_.plugin(); }
    standin::MainWindow& window() { return *window_; }
    QTreeView& tree() { return window_->objectPanel().tree(); }
    QTreeWidget& properties() { return window_->propertyPanel().tree(); }

    template <class Widget>
    Widget& find(const char* name) {
        auto* const widget = window_->findChild<Widget*>(QLatin1String(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }

    void openHouse() {
        window_->openFiles({toQString(playground_.house())});
        settle();
        ASSERT_EQ(host().objects().files().size(), 1U);
        plugin().events.clear();
    }
    /// Lets everything be shown that has changed.
    void settle() {
        QCoreApplication::processEvents();
        window_->refresh();
        QCoreApplication::processEvents();  // what is new gets its place
    }
    void select(const std::u16string& name) {
        host().select({host().objects().findNamed(name)->id});
        settle();
        plugin().events.clear();
    }
    /// The row of a property, or of a set when `property` is empty; null when there is none.
    QTreeWidgetItem* row(const char* set, const char* property = "") {
        for (int at = 0; at < properties().topLevelItemCount(); ++at) {
            QTreeWidgetItem* const item = properties().topLevelItem(at);
            if (item->text(0) != QLatin1String(set))
                continue;
            if (!*property)
                return item;
            for (int child = 0; child < item->childCount(); ++child)
                if (item->child(child)->text(0) == QLatin1String(property))
                    return item->child(child);
        }
        return nullptr;
    }
    std::vector<std::u16string> selectedNames() {
        std::vector<std::u16string> names;
        for (const HostObjectId id : host().objects().selected())
            names.push_back(host().objects().find(id)->name);
        return names;
    }

private:
    Playground playground_;
    standin::Settings settings_;
    std::unique_ptr<standin::MainWindow> window_;
};

/// Runs `act` while `open` waits in a dialog that it has opened. Fails when there is none.
inline void inDialog(const std::function<void()>& open,
                     const std::function<void(QDialog& dialog)>& act) {
    bool isDone = false;
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || isDone)
            return;
        isDone = true;
        act(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    looking.start(5);
    QTimer lost;
    QObject::connect(&lost, &QTimer::timeout, [] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ADD_FAILURE() << "not expected: " << dialog->windowTitle().toStdString();
            dialog->reject();
        }
    });
    lost.start(5000);
    open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }, 2000)) << "no dialog";
}

/// Clicks a button of a dialog by its text.
inline void pressButton(QDialog& dialog, const QString& text) {
    for (QPushButton* const button : dialog.findChildren<QPushButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "no button " << text.toStdString();
}
