#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace vexmoor {

/// Whether some program owns a selection of the display: so programs of which there is one at a
/// time make themselves known, as a compositing manager or a system tray. Without X11 nobody owns
/// anything. Needs the application; main thread.
class SelectionOwner : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

  public:
    explicit SelectionOwner(const char* selection, QObject* parent = nullptr);
    ~SelectionOwner() override;

    [[nodiscard]] bool isOwned() const { return m_owned; }
    /// Whether there is a display that knows of selections.
    [[nodiscard]] bool isKnown() const { return m_selection != 0; }

  signals:
    void ownedChanged(bool owned);

  private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void setOwned(bool owned);

    bool m_owned = false;
    unsigned m_selection = 0;
    int m_ownerEvent = -1; ///< the number of the event that reports owners
};

} // namespace vexmoor
