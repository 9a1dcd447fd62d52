#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace vexmoor {

/// Whether an X selection has an owner. Unique programs such as a compositing manager or a system
/// tray announce themselves this way. Always false without X11. Requires the QGuiApplication; main
/// thread.
class SelectionOwner : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

  public:
    explicit SelectionOwner(const char* selection, QObject* parent = nullptr);
    ~SelectionOwner() override;

    [[nodiscard]] bool isOwned() const { return m_owned; }
    /// True if the display supports selections.
    [[nodiscard]] bool isKnown() const { return m_selection != 0; }

  signals:
    void ownedChanged(bool owned);

  private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void setOwned(bool owned);

    bool m_owned = false;
    unsigned m_selection = 0;
    int m_ownerEvent = -1; ///< number of the XFIXES event that reports owners
};

} // namespace vexmoor
