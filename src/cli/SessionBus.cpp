#include "SessionBus.h"

#include <dlfcn.h>
#include <systemd/sd-bus.h>

#include <cerrno>
#include <cstdlib>

namespace vexmoor {

namespace {

using Microseconds = std::chrono::microseconds;

constexpr std::uint64_t kPause = 100'000; // microseconds between two polls for a reply

/// The functions used from the D-Bus library.
struct Library {
    decltype(&::sd_bus_open_user) openUser = nullptr;
    decltype(&::sd_bus_get_unique_name) getUniqueName = nullptr;
    decltype(&::sd_bus_flush_close_unref) flushCloseUnref = nullptr;
    decltype(&::sd_bus_call_async) callAsync = nullptr;
    decltype(&::sd_bus_send) send = nullptr;
    decltype(&::sd_bus_process) process = nullptr;
    decltype(&::sd_bus_wait) wait = nullptr;
    decltype(&::sd_bus_slot_unref) slotUnref = nullptr;
    decltype(&::sd_bus_message_new_method_call) newMethodCall = nullptr;
    decltype(&::sd_bus_message_ref) messageRef = nullptr;
    decltype(&::sd_bus_message_unref) messageUnref = nullptr;
    decltype(&::sd_bus_message_set_auto_start) setAutoStart = nullptr;
    decltype(&::sd_bus_message_set_expect_reply) setExpectReply = nullptr;
    decltype(&::sd_bus_message_append_basic) appendBasic = nullptr;
    decltype(&::sd_bus_message_append_array) appendArray = nullptr;
    decltype(&::sd_bus_message_open_container) openContainer = nullptr;
    decltype(&::sd_bus_message_close_container) closeContainer = nullptr;
    decltype(&::sd_bus_message_read_basic) readBasic = nullptr;
    decltype(&::sd_bus_message_read_strv) readStrings = nullptr;
    decltype(&::sd_bus_message_get_error) getError = nullptr;
    bool isWhole = false;
};

template <typename Function>
bool find(void* handle, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(handle, name));
    return function != nullptr;
}

Library load() {
    void* handle = nullptr;
    for (const char* const name : {"libsystemd.so.0", "libelogind.so.0", "libbasu.so.0"})
        if (handle == nullptr)
            handle = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    Library all;
    all.isWhole =
        handle != nullptr && find(handle, "sd_bus_open_user", all.openUser) &&
        find(handle, "sd_bus_get_unique_name", all.getUniqueName) &&
        find(handle, "sd_bus_flush_close_unref", all.flushCloseUnref) &&
        find(handle, "sd_bus_call_async", all.callAsync) && find(handle, "sd_bus_send", all.send) &&
        find(handle, "sd_bus_process", all.process) && find(handle, "sd_bus_wait", all.wait) &&
        find(handle, "sd_bus_slot_unref", all.slotUnref) &&
        find(handle, "sd_bus_message_new_method_call", all.newMethodCall) &&
        find(handle, "sd_bus_message_ref", all.messageRef) &&
        find(handle, "sd_bus_message_unref", all.messageUnref) &&
        find(handle, "sd_bus_message_set_auto_start", all.setAutoStart) &&
        find(handle, "sd_bus_message_set_expect_reply", all.setExpectReply) &&
        find(handle, "sd_bus_message_append_basic", all.appendBasic) &&
        find(handle, "sd_bus_message_append_array", all.appendArray) &&
        find(handle, "sd_bus_message_open_container", all.openContainer) &&
        find(handle, "sd_bus_message_close_container", all.closeContainer) &&
        find(handle, "sd_bus_message_read_basic", all.readBasic) &&
        find(handle, "sd_bus_message_read_strv", all.readStrings) &&
        find(handle, "sd_bus_message_get_error", all.getError);
    return all;
}

const Library& library() {
    static const Library loaded = load();
    return loaded;
}

BusError disconnected(int result) {
    return {SD_BUS_ERROR_DISCONNECTED, std::error_code(-result, std::generic_category()).message()};
}

int keepReply(sd_bus_message* reply, void* kept, sd_bus_error*) {
    static_cast<BusMessagePointer*>(kept)->reset(library().messageRef(reply));
    return 1;
}

} // namespace

void BusMessageRelease::operator()(sd_bus_message* message) const {
    library().messageUnref(message);
}

void SessionBus::Release::operator()(sd_bus* bus) const {
    library().flushCloseUnref(bus);
}

void BusCall::addBasic(char type, const void* value) {
    if (m_error == 0)
        note(library().appendBasic(m_message.get(), type, value));
}

void BusCall::open(char type, const char* contents) {
    if (m_error == 0)
        note(library().openContainer(m_message.get(), type, contents));
}

void BusCall::close() {
    if (m_error == 0)
        note(library().closeContainer(m_message.get()));
}

void BusCall::add(const std::string& text) {
    addBasic('s', text.c_str());
}

void BusCall::add(bool value) {
    const int number = value ? 1 : 0;
    addBasic('b', &number);
}

void BusCall::add(std::uint32_t value) {
    addBasic('u', &value);
}

void BusCall::add(std::int32_t value) {
    addBasic('i', &value);
}

void BusCall::add(std::uint64_t value) {
    addBasic('t', &value);
}

void BusCall::add(const std::vector<std::string>& texts) {
    open('a', "s");
    for (const auto& text : texts)
        add(text);
    close();
}

void BusCall::add(const std::vector<std::uint64_t>& numbers) {
    if (m_error == 0)
        note(library().appendArray(m_message.get(), 't', numbers.data(),
                                   numbers.size() * sizeof(std::uint64_t)));
}

void BusCall::addByteStrings(const std::vector<std::string>& items) {
    open('a', "ay");
    for (const auto& item : items)
        if (m_error == 0)
            note(library().appendArray(m_message.get(), 'y', item.data(), item.size()));
    close();
}

void BusCall::addEntry(const std::string& key, const std::string& text) {
    open('a', "{sv}");
    open('e', "sv");
    add(key);
    open('v', "s");
    add(text);
    close();
    close();
    close();
}

void BusCall::startNothing() {
    note(library().setAutoStart(m_message.get(), 0));
}

std::optional<std::string> BusReply::text() {
    const char* value = nullptr;
    if (library().readBasic(m_message.get(), 's', &value) <= 0)
        return std::nullopt;
    return value;
}

std::optional<std::vector<std::string>> BusReply::texts() {
    char** values = nullptr;
    if (library().readStrings(m_message.get(), &values) <= 0)
        return std::nullopt;
    std::vector<std::string> result;
    for (char** value = values; value != nullptr && *value != nullptr; ++value) {
        result.emplace_back(*value);
        std::free(*value);
    }
    std::free(values);
    return result;
}

std::optional<std::uint64_t> BusReply::number() {
    std::uint64_t value = 0;
    if (library().readBasic(m_message.get(), 't', &value) <= 0)
        return std::nullopt;
    return value;
}

std::optional<bool> BusReply::boolean() {
    int value = 0;
    if (library().readBasic(m_message.get(), 'b', &value) <= 0)
        return std::nullopt;
    return value != 0;
}

Result<SessionBus> SessionBus::connect() {
    if (!library().isWhole)
        return Error::fromErrno(ELIBACC, "load", "libsystemd.so.0");
    sd_bus* opened = nullptr;
    if (const int result = library().openUser(&opened); result < 0)
        return Error::fromErrno(-result, "connect");
    SessionBus bus(opened);
    const char* name = nullptr; // assigned by the bus after authentication
    if (const int result = library().getUniqueName(opened, &name); result < 0)
        return Error::fromErrno(-result, "connect");
    return bus;
}

BusCall SessionBus::call(const char* service, const char* path, const char* interface,
                         const char* method) const {
    sd_bus_message* message = nullptr;
    const int result =
        library().newMethodCall(m_bus.get(), &message, service, path, interface, method);
    BusCall call{BusMessagePointer(message)};
    call.note(result);
    return call;
}

std::variant<BusReply, BusError> SessionBus::send(BusCall call, Microseconds limit,
                                                  const std::function<void()>& whileWaiting) {
    if (call.m_error < 0)
        return BusError{SD_BUS_ERROR_INVALID_ARGS,
                        std::error_code(-call.m_error, std::generic_category()).message()};
    BusMessagePointer reply;
    sd_bus_slot* slot = nullptr;
    int result = library().callAsync(m_bus.get(), &slot, call.m_message.get(), keepReply, &reply,
                                     limit == kForEver ? UINT64_MAX
                                                       : static_cast<std::uint64_t>(limit.count()));
    while (result >= 0 && !reply) {
        result = library().process(m_bus.get(), nullptr);
        if (result != 0)
            continue;
        if (whileWaiting)
            whileWaiting();
        result = library().wait(m_bus.get(), kPause);
        if (result == -EINTR)
            result = 0;
    }
    library().slotUnref(slot);
    if (!reply)
        return disconnected(result);
    if (const sd_bus_error* const error = library().getError(reply.get()))
        return BusError{error->name, error->message != nullptr ? error->message : ""};
    return BusReply(std::move(reply));
}

void SessionBus::sendOnly(BusCall call) {
    if (call.m_error < 0)
        return;
    library().setExpectReply(call.m_message.get(), 0);
    (void)library().send(m_bus.get(), call.m_message.get(),
                         nullptr); // the next call reports a lost connection
}

} // namespace vexmoor
