// platform: a new file that another thread writes.
#include "screen/background_file.h"

#include "screen/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <utility>

namespace kq {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t block_size = 1 << 20;
constexpr std::size_t max_waiting = 8; // blocks that the disk may lag behind
constexpr auto interval = 20ms;        // between two questions, and the patience with a thread that is to end

// Keeps the file of a name that is about to be replaced, and lets go of it on a thread of its own: to free a
// file of gigabytes takes the system half a second.
class ReplacedFile {
public:
    explicit ReplacedFile(const std::string& path)
        : file_(open(path.c_str(), O_PATH | O_CLOEXEC))
    {
    }
    ~ReplacedFile()
    {
        if (file_ < 0) return;
        try {
            std::thread(close, file_).detach();
        } catch (const std::system_error&) {
            close(file_);
        }
    }
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

private:
    int file_; // negative = there is none
};

} // namespace

// What both threads work on. The file is the thread's until `ended`.
struct BackgroundFile::Work {
    explicit Work(const std::string& path)
        : file(path)
    {
    }
    NewFile file;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::string> blocks; // the first one is being written
    bool complete = false, abandoned = false, ended = false;

    void run();
};

void BackgroundFile::Work::run()
{
    std::unique_lock lock(mutex);
    while (!abandoned && file.error().empty()) {
        if (blocks.empty() && complete) {
            lock.unlock();
            file.finish();
            lock.lock();
            break;
        }
        if (blocks.empty()) {
            changed.wait(lock);
            continue;
        }
        const std::string& block = blocks.front(); // a deque that grows behind moves nothing
        lock.unlock();
        file.write(block);
        lock.lock();
        blocks.pop_front();
        changed.notify_all();
    }
    ended = true;
    changed.notify_all();
}

BackgroundFile::BackgroundFile(const std::string& path, GoOn go_on)
    : path_(path)
    , go_on_(std::move(go_on))
    , work_(std::make_shared<Work>(path))
    , no_leftover_([temporary = work_->file.temporary()] { unlink(temporary.c_str()); })
{
    error_ = work_->file.error();
    if (!error_.empty()) return;
    try {
        thread_ = std::thread([work = work_] { work->run(); });
    } catch (const std::system_error& failure) {
        error_ = file_problem("Problem in writing file", path, failure.code().value());
    }
}

BackgroundFile::~BackgroundFile()
{
    stop();
}

// A thread that the disk holds up is left to itself. It writes on into a file that no directory shows any
// more.
void BackgroundFile::stop()
{
    if (!thread_.joinable()) return;
    std::unique_lock lock(work_->mutex);
    work_->abandoned = true;
    work_->changed.notify_all();
    if (work_->changed.wait_for(lock, interval, [this] { return work_->ended; })) {
        lock.unlock();
        thread_.join();
    } else {
        unlink(work_->file.temporary().c_str());
        lock.unlock();
        thread_.detach();
    }
    work_.reset();
}

bool BackgroundFile::may_go_on()
{
    const auto now = std::chrono::steady_clock::now();
    if (now - last_asked_ < interval) return true;
    last_asked_ = now;
    if (go_on_()) return true;
    stop();
    return false;
}

// Gives what is pending to the thread, once it is not too far behind.
bool BackgroundFile::hand_over()
{
    std::unique_lock lock(work_->mutex);
    while (work_->blocks.size() >= max_waiting && !work_->ended) {
        work_->changed.wait_for(lock, interval);
        lock.unlock();
        if (!may_go_on()) return false;
        lock.lock();
    }
    if (work_->ended) return false; // it has failed, which commit() finds out
    work_->blocks.push_back(std::exchange(pending_, {}));
    work_->changed.notify_all();
    return true;
}

bool BackgroundFile::write(std::string_view bytes)
{
    if (!thread_.joinable() || !may_go_on()) return false;
    pending_ += bytes;
    return pending_.size() < block_size || hand_over();
}

bool BackgroundFile::commit()
{
    if (!thread_.joinable()) return false;
    if (!pending_.empty() && !hand_over() && !thread_.joinable()) return false;
    std::unique_lock lock(work_->mutex);
    work_->complete = true;
    work_->changed.notify_all();
    while (!work_->ended) {
        work_->changed.wait_for(lock, interval);
        lock.unlock();
        if (!may_go_on()) return false;
        lock.lock();
    }
    lock.unlock();
    thread_.join();
    const ReplacedFile replaced(path_);
    const bool in_place = work_->file.commit();
    error_ = work_->file.error();
    work_.reset();
    return in_place;
}

std::string BackgroundFile::error() const
{
    return error_;
}

} // namespace kq
