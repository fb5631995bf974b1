// platform: a new file that another thread writes, so that whoever makes a large one never waits for the disk
// without looking for keys.
#pragma once

#include "screen/cleanup.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace kq {

// A NewFile: complete in its place after commit(), else not there at all.
class BackgroundFile {
public:
    // Asked about fifty times a second, by the thread that calls write() and commit(); false stops both.
    using GoOn = std::function<bool()>;

    BackgroundFile(const std::string& path, GoOn go_on);
    ~BackgroundFile();
    BackgroundFile(const BackgroundFile&) = delete;
    BackgroundFile& operator=(const BackgroundFile&) = delete;

    // False when the file will not come about: stopped, or something has failed.
    bool write(std::string_view bytes);
    bool commit();
    // What failed, with the system's reason; empty while all is well, and when it was stopped.
    std::string error() const;

private:
    struct Work;

    const std::string path_;
    GoOn go_on_;
    std::shared_ptr<Work> work_; // the thread's too, which may outlive a file that was stopped
    Cleanup no_leftover_;        // where the program ends in the middle
    std::thread thread_;         // joinable until it is complete, stopped or has failed
    std::string pending_, error_;
    std::chrono::steady_clock::time_point last_asked_{};

    bool may_go_on();
    bool hand_over();
    void stop();
};

} // namespace kq
