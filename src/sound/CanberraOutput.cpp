#include "CanberraOutput.h"

#include "base/FileDescriptor.h"

#include <canberra.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace vexmoor {
namespace {

/// How long a player's destructor waits for its thread, which a hanging sound server can block.
constexpr std::chrono::milliseconds kEndTimeout{500};

bool writeWhole(FileDescriptor& file, const std::vector<std::uint8_t>& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(file.get(), bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += static_cast<std::size_t>(count);
    }
    return file.close();
}

/// A temporary file with mode 0600, deleted on destruction.
class PrivateFile {
  public:
    static std::optional<PrivateFile> holding(const std::vector<std::uint8_t>& bytes,
                                              const std::vector<Path>& folders) {
        constexpr int kSuffixLength = 4;
        for (const Path& folder : folders) {
            std::string name = folder / "vexmoor-XXXXXX.wav";
            FileDescriptor file(::mkostemps(name.data(), kSuffixLength, O_CLOEXEC)); // 0600
            if (!file)
                continue;
            PrivateFile made(std::move(name));
            if (writeWhole(file, bytes))
                return made;
        }
        return std::nullopt;
    }
    PrivateFile(PrivateFile&& other) noexcept : m_name(std::exchange(other.m_name, {})) {}
    PrivateFile& operator=(PrivateFile&&) = delete;
    ~PrivateFile() {
        if (!m_name.empty())
            ::unlink(m_name.c_str());
    }

    [[nodiscard]] const char* name() const { return m_name.c_str(); }

  private:
    explicit PrivateFile(std::string name) : m_name(std::move(name)) {}

    std::string m_name;
};

/// State shared by a player, its thread and libcanberra's thread.
class Sound {
  public:
    Sound(WavPointer wav, double volume, std::vector<Path> folders)
        : m_wav(std::move(wav)), m_volume(volume), m_folders(std::move(folders)) {}

    /// The body of the player's thread.
    void run() {
        ca_context* context = nullptr;
        if (ca_context_create(&context) == CA_SUCCESS) {
            if (begin(context))
                waitUntil(&Sound::m_heard);
            ca_context_destroy(context);
        }
        set(&Sound::m_ended);
    }

    /// Requests the thread to end and waits for it until a timeout. Returns true if it ended.
    bool end() {
        set(&Sound::m_heard);
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, kEndTimeout, [this] { return m_ended; });
    }

    [[nodiscard]] bool hasEnded() const {
        const std::lock_guard lock(m_mutex);
        return m_ended;
    }

  private:
    bool begin(ca_context* context) {
        const auto file = PrivateFile::holding(*m_wav, m_folders);
        if (!file)
            return false;
        char decibels[32]; // libcanberra parses it with strtod in the same locale
        std::snprintf(decibels, sizeof decibels, "%.6f", 20 * std::log10(m_volume));
        ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Vexmoor",
                                CA_PROP_APPLICATION_ID, "org.vexmoor.Vexmoor", nullptr);
        ca_proplist* properties = nullptr;
        if (ca_proplist_create(&properties) != CA_SUCCESS)
            return false;
        ca_proplist_sets(properties, CA_PROP_MEDIA_FILENAME, file->name());
        ca_proplist_sets(properties, CA_PROP_MEDIA_NAME, "Sizzle");
        ca_proplist_sets(properties, CA_PROP_MEDIA_ROLE, "event");
        ca_proplist_sets(properties, CA_PROP_CANBERRA_VOLUME, decibels);
        // libcanberra reads the file while playing but opens it before returning.
        const int code = ca_context_play_full(context, 0, properties, &Sound::finished, this);
        ca_proplist_destroy(properties);
        return code == CA_SUCCESS;
    }

    /// Called on libcanberra's thread, also if the server disconnects.
    static void finished(ca_context*, std::uint32_t, int, void* self) {
        static_cast<Sound*>(self)->set(&Sound::m_heard);
    }

    void set(bool Sound::*flag) {
        const std::lock_guard lock(m_mutex);
        this->*flag = true;
        m_changed.notify_all();
    }

    void waitUntil(bool Sound::*flag) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this, flag] { return this->*flag; });
    }

    WavPointer m_wav;
    double m_volume;
    std::vector<Path> m_folders;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_heard = false; ///< played completely, or cancelled
    bool m_ended = false; ///< the thread has finished
};

class CanberraPlayer : public AudioPlayer {
  public:
    explicit CanberraPlayer(std::shared_ptr<Sound> sound)
        : m_sound(std::move(sound)), m_thread([mine = m_sound] { mine->run(); }) {}
    ~CanberraPlayer() override {
        if (m_sound->end())
            m_thread.join();
        else
            m_thread.detach(); // safe, because the thread shares ownership of its state
    }
    CanberraPlayer(const CanberraPlayer&) = delete;
    CanberraPlayer& operator=(const CanberraPlayer&) = delete;

    [[nodiscard]] bool isPlaying() const override { return !m_sound->hasEnded(); }

  private:
    std::shared_ptr<Sound> m_sound;
    std::thread m_thread;
};

} // namespace

CanberraOutput::CanberraOutput(std::vector<Path> folders) : m_folders(std::move(folders)) {}

std::unique_ptr<AudioPlayer> CanberraOutput::play(WavPointer wav, double volume) {
    try {
        return std::make_unique<CanberraPlayer>(
            std::make_shared<Sound>(std::move(wav), volume, m_folders));
    } catch (const std::system_error&) { // no thread could be created
        return nullptr;
    }
}

std::vector<Path> CanberraOutput::defaultFolders() {
    std::vector<Path> folders;
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && Path(runtime).is_absolute())
        folders.emplace_back(runtime);
    std::error_code code;
    const Path temporary = std::filesystem::temp_directory_path(code);
    if (!code)
        folders.push_back(temporary);
    return folders;
}

} // namespace vexmoor
