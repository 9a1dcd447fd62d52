#include <xcb/xcb.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <optional>

// Starts a program, prints the milliseconds until a pixel of the screen changes its colour, or
// nothing after ten seconds, and ends the program.
//   first_paint X Y PROGRAM [ARGUMENT...]

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

std::optional<std::uint32_t> colourAt(xcb_connection_t* connection, xcb_window_t root, int x,
                                      int y) {
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
        xcb_get_image_reply(connection,
                            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root,
                                          static_cast<std::int16_t>(x),
                                          static_cast<std::int16_t>(y), 1, 1, ~0U),
                            nullptr),
        &std::free);
    if (!image)
        return std::nullopt;
    std::uint32_t colour = 0;
    std::memcpy(&colour, xcb_get_image_data(image.get()), sizeof colour);
    return colour;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4)
        return 2;
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
        return 3;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const int x = std::atoi(argv[1]);
    const int y = std::atoi(argv[2]);
    const auto before = colourAt(connection, root, x, y);
    const auto start = Clock::now();
    const pid_t program = fork();
    if (program == 0) {
        dup2(STDERR_FILENO, STDOUT_FILENO); // ours has the figure only
        execvp(argv[3], argv + 3);
        _exit(127);
    }
    const timespec pause{0, 500'000};
    bool painted = false;
    while (!painted && Clock::now() - start < std::chrono::seconds(10)) {
        nanosleep(&pause, nullptr);
        painted = colourAt(connection, root, x, y) != before;
    }
    if (painted)
        std::printf("%.1f\n", Milliseconds(Clock::now() - start).count());
    kill(program, SIGTERM);
    waitpid(program, nullptr, 0);
    xcb_disconnect(connection);
    return painted ? 0 : 1;
}
