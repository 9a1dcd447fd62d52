#include "Compositor.h"

namespace vexmoor {

Compositor::Compositor(QObject* parent) : QObject(parent), m_owner("_NET_WM_CM_S0") {
    connect(&m_owner, &SelectionOwner::ownedChanged, this, &Compositor::runningChanged);
}

} // namespace vexmoor
