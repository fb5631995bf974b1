// platform: the driver that shows the picture in an X11 window.
//
// The driver keeps an image of the window in the server's pixel format, in memory shared with the server
// where that works. Presenting converts the changed rectangles into it and sends them; an exposed part of the
// window is sent again from it, without the program's help. At most one presentation is under way to the
// server: a slow connection delays the next one instead of filling up with pictures that nobody wants any
// more.
#include "raster/xwin.h"

#include "raster/keys.h"
#include "raster/keysyms.h"
#include "raster/palette.h"
#include "raster/surface.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/cursorfont.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>

namespace kq {

namespace {

constexpr int native_byte_order = std::endian::native == std::endian::little ? LSBFirst : MSBFirst;

// ---- errors -----------------------------------------------------------------------------------------------

// Xlib's handlers take no argument of ours, and there is one connection.
std::atomic<int> connection_number = -1; // its file descriptor; -1 while there is none
bool error_seen = false;                 // since it was last cleared
bool expecting_error = false;
class XwinDriver;
XwinDriver* connected_driver = nullptr;

// The default handler ends the program without a word to it; an error of a single request never justifies
// that.
int note_error(Display* display, XErrorEvent* event)
{
    error_seen = true;
    if (expecting_error) return 0;
    std::array<char, 200> text{};
    XGetErrorText(display, event->error_code, text.data(), static_cast<int>(text.size()));
    std::fprintf(stderr, "kq: the X server reports: %s (request %d)\n", text.data(), event->request_code);
    return 0;
}

// A lost connection is reported from inside whatever Xlib call comes upon it, and Xlib does not go on after
// it.
int note_lost_connection(Display* display);

// Whether the requests made by `requests` raise an error at the server.
template <class Requests>
bool server_accepts(Display* display, Requests requests)
{
    XSync(display, False);
    error_seen = false;
    expecting_error = true;
    const bool done = requests();
    XSync(display, False);
    expecting_error = false;
    return done && !error_seen;
}

// ---- pixel formats ----------------------------------------------------------------------------------------

struct FreeByX {
    void operator()(void* memory) const noexcept { XFree(memory); }
};

// The visual to show colours in: the screen's own when it is TrueColor, else the deepest TrueColor visual of
// at most 24 bits (deeper ones may be transparent). visual is null when there is none.
XVisualInfo choose_visual(Display* display)
{
    const int number = DefaultScreen(display);
    XVisualInfo wanted{};
    wanted.screen = number;
    wanted.c_class = TrueColor;
    int count = 0;
    const std::unique_ptr<XVisualInfo, FreeByX> list(
        XGetVisualInfo(display, VisualScreenMask | VisualClassMask, &wanted, &count));
    XVisualInfo best{};
    for (int i = 0; i < count; i++) {
        const XVisualInfo& info = list.get()[i];
        if (info.visual == DefaultVisual(display, number)) return info;
        if (!best.visual || (info.depth <= 24 && (info.depth > best.depth || best.depth > 24))) best = info;
    }
    return best;
}

// The part of a pixel value that one colour channel (0..255) gives.
unsigned long channel_bits(unsigned long mask, std::uint8_t value)
{
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const unsigned long most = mask >> shift;
    return ((value * most + 127) / 255) << shift;
}

unsigned long pixel_value(const XVisualInfo& visual, Rgb colour)
{
    const unsigned long bits = channel_bits(visual.red_mask, colour.red) |
                               channel_bits(visual.green_mask, colour.green) |
                               channel_bits(visual.blue_mask, colour.blue);
    // What is no colour in a 32-bit visual is opacity.
    const unsigned long colours = visual.red_mask | visual.green_mask | visual.blue_mask;
    return visual.depth == 32 ? bits | (0xFFFFFFFFUL & ~colours) : bits;
}

// ---- the image --------------------------------------------------------------------------------------------

// The window's contents in the server's format.
class WindowImage {
public:
    // `connected` is looked at on destruction: whether the server can still be told.
    WindowImage(Display* display, const bool& connected, const XVisualInfo& visual, int width, int height)
        : display_(display)
        , connected_(connected)
    {
        // Shared memory is read by the server as it is, so the byte order must be the server's own.
        if (ImageByteOrder(display) == native_byte_order && XShmQueryExtension(display))
            make_shared(visual, width, height);
        if (!image_) make_plain(visual, width, height);
    }
    ~WindowImage()
    {
        if (shared_ && connected_) {
            XShmDetach(display_, &segment_);
            XSync(display_, False);
        }
        if (shared_) shmdt(segment_.shmaddr);
        if (shared_ && image_) image_->data = nullptr; // it was the segment's
        if (image_) XDestroyImage(image_);
    }
    WindowImage(const WindowImage&) = delete;
    WindowImage& operator=(const WindowImage&) = delete;

    bool usable() const { return image_ != nullptr; }
    Rect bounds() const { return {0, 0, image_->width, image_->height}; }

    // Converts a rectangle of the picture; `pixels` holds the pixel value of each palette index.
    void convert(const Surface& picture, const Rect& rect, const std::array<std::uint32_t, 256>& pixels)
    {
        for (int y = rect.y; y < rect.y + rect.height; y++) {
            const Surface::Pixel* from = picture.row(y).data() + rect.x;
            char* to = image_->data + static_cast<std::ptrdiff_t>(y) * image_->bytes_per_line;
            if (image_->bits_per_pixel == 32)
                convert_row(from, reinterpret_cast<std::uint32_t*>(to) + rect.x, rect.width, pixels);
            else if (image_->bits_per_pixel == 16)
                convert_row(from, reinterpret_cast<std::uint16_t*>(to) + rect.x, rect.width, pixels);
            else
                for (int x = 0; x < rect.width; x++)
                    XPutPixel(image_, rect.x + x, y, pixels[from[x]]);
        }
    }

    void put(Window window, GC gc, const Rect& rect)
    {
        const auto width = static_cast<unsigned>(rect.width), height = static_cast<unsigned>(rect.height);
        if (shared_)
            XShmPutImage(display_, window, gc, image_, rect.x, rect.y, rect.x, rect.y, width, height, False);
        else
            XPutImage(display_, window, gc, image_, rect.x, rect.y, rect.x, rect.y, width, height);
    }

private:
    Display* display_;
    const bool& connected_;
    XImage* image_ = nullptr;
    XShmSegmentInfo segment_{};
    bool shared_ = false;

    template <class Value>
    static void convert_row(const Surface::Pixel* from, Value* to, int count,
                            const std::array<std::uint32_t, 256>& pixels)
    {
        for (int x = 0; x < count; x++)
            to[x] = static_cast<Value>(pixels[from[x]]);
    }

    // Leaves image_ null when the server cannot reach our memory (a remote connection, another container).
    void make_shared(const XVisualInfo& visual, int width, int height)
    {
        image_ =
            XShmCreateImage(display_, visual.visual, static_cast<unsigned>(visual.depth), ZPixmap, nullptr,
                            &segment_, static_cast<unsigned>(width), static_cast<unsigned>(height));
        if (!image_) return;
        const auto size = static_cast<std::size_t>(image_->bytes_per_line) * static_cast<std::size_t>(height);
        segment_.shmid = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
        void* memory = segment_.shmid < 0 ? nullptr : shmat(segment_.shmid, nullptr, 0);
        if (memory && memory != reinterpret_cast<void*>(-1)) {
            segment_.shmaddr = image_->data = static_cast<char*>(memory);
            segment_.readOnly = False;
            shared_ = server_accepts(display_, [&] { return XShmAttach(display_, &segment_) != 0; });
            if (!shared_) shmdt(memory);
        }
        // Marked now, the segment goes with the last process attached, however that ends.
        if (segment_.shmid >= 0) shmctl(segment_.shmid, IPC_RMID, nullptr);
        if (shared_) return;
        image_->data = nullptr;
        XDestroyImage(image_);
        image_ = nullptr;
    }

    void make_plain(const XVisualInfo& visual, int width, int height)
    {
        image_ = XCreateImage(display_, visual.visual, static_cast<unsigned>(visual.depth), ZPixmap, 0,
                              nullptr, static_cast<unsigned>(width), static_cast<unsigned>(height), 32, 0);
        if (!image_) return;
        image_->byte_order = native_byte_order; // Xlib converts on sending
        XInitImage(image_);
        const auto size = static_cast<std::size_t>(image_->bytes_per_line) * static_cast<std::size_t>(height);
        image_->data = static_cast<char*>(std::calloc(size, 1)); // XDestroyImage frees it
        if (image_->data) return;
        XDestroyImage(image_);
        image_ = nullptr;
    }
};

// ---- the driver -------------------------------------------------------------------------------------------

class XwinDriver final : public Driver {
public:
    explicit XwinDriver(std::function<void()> lost)
        : lost_(std::move(lost))
    {
    }
    ~XwinDriver() override;

    std::string open(int width, int height, const std::string& title) override;
    void set_title(const std::string& title) override;
    void show_pointer() override;
    void present(const Surface& picture, const Palette& palette, std::span<const Rect> changed) override;
    int wait_key() override;
    bool key_waiting() override;
    bool take_waiting(int code) override;
    bool focused() const override { return focused_; }

    void connection_is_lost();

private:
    std::function<void()> lost_;
    bool connected_ = false; // false again when the server is gone: then Xlib must not be called
    Display* display_ = nullptr;
    XVisualInfo visual_{};
    Window window_ = 0;
    GC gc_ = nullptr;
    Atom delete_window_ = 0, presented_ = 0;
    std::unique_ptr<WindowImage> image_;
    std::array<std::uint32_t, 256> pixels_{}; // of the palette's entries
    int pixels_known_ = 0;
    bool under_way_ = false; // a presentation that the server has not yet come to

    std::deque<int> keys_;
    unsigned alt_mask_ = Mod1Mask, num_lock_mask_ = Mod2Mask;
    bool knows_repeats_ = false; // the server sends no releases for a key that repeats itself
    unsigned held_ = 0;          // key (by its X code) that was pressed last and not yet released
    bool focused_ = true, focus_changed_ = false;

    std::string connect();
    void create_window(int width, int height);
    void set_hints(int width, int height, const std::string& title);
    void find_modifiers();
    void handle_waiting();
    void handle(XEvent& event);
    void handle_key(XKeyEvent& event);
    void handle_focus(const XFocusChangeEvent& event);
    void redraw(const Rect& exposed);
};

XwinDriver::~XwinDriver()
{
    connection_number = -1;
    image_.reset();
    if (connected_) XCloseDisplay(display_);
}

std::string XwinDriver::open(int width, int height, const std::string& title)
{
    if (!display_) {
        auto error = connect();
        if (!error.empty()) return error;
    }
    auto image = std::make_unique<WindowImage>(display_, connected_, visual_, width, height);
    if (!image->usable()) return "There is not enough memory for a window of this size.";
    image_ = std::move(image);
    if (!window_) {
        create_window(width, height);
        set_hints(width, height, title);
        XMapWindow(display_, window_);
    } else {
        set_hints(width, height, title); // first, so that no old limit holds back the new size
        XResizeWindow(display_, window_, static_cast<unsigned>(width), static_cast<unsigned>(height));
    }
    XFlush(display_);
    return {};
}

// Empty, or why there is no window.
std::string XwinDriver::connect()
{
    const char* name = std::getenv("DISPLAY");
    if (!name || !*name)
        return "kq needs a graphical display: the environment variable DISPLAY is not set. Start kq in a "
               "desktop "
               "session, or over ssh with the option -X.";
    XSetErrorHandler(note_error);
    display_ = XOpenDisplay(nullptr);
    if (!display_)
        return "kq needs a graphical display, but the X server \"" + std::string(name) +
               "\" (environment variable DISPLAY) cannot be reached or refuses the connection.";
    visual_ = choose_visual(display_);
    if (!visual_.visual) {
        XCloseDisplay(display_);
        display_ = nullptr;
        return "The X server \"" + std::string(name) +
               "\" has no TrueColor screen (it needs 15 bits a pixel or more).";
    }
    connected_ = true;
    connection_number = ConnectionNumber(display_);
    connected_driver = this;
    XSetIOErrorHandler(note_lost_connection);
    int supported = False;
    XkbSetDetectableAutoRepeat(display_, True, &supported);
    knows_repeats_ = supported == True;
    find_modifiers();
    delete_window_ = XInternAtom(display_, "WM_DELETE_WINDOW", False);
    presented_ = XInternAtom(display_, "KQ_PRESENTED", False);
    return {};
}

void XwinDriver::create_window(int width, int height)
{
    const Window root = RootWindow(display_, visual_.screen);
    XSetWindowAttributes attributes{};
    attributes.background_pixmap = None; // the server paints nothing by itself, so nothing flickers
    attributes.border_pixel = 0;
    attributes.bit_gravity = NorthWestGravity;
    attributes.colormap = visual_.visual == DefaultVisual(display_, visual_.screen)
                              ? DefaultColormap(display_, visual_.screen)
                              : XCreateColormap(display_, root, visual_.visual, AllocNone);
    attributes.event_mask =
        KeyPressMask | KeyReleaseMask | ExposureMask | StructureNotifyMask | FocusChangeMask;
    window_ =
        XCreateWindow(display_, root, 0, 0, static_cast<unsigned>(width), static_cast<unsigned>(height), 0,
                      visual_.depth, InputOutput, visual_.visual,
                      CWBackPixmap | CWBorderPixel | CWBitGravity | CWColormap | CWEventMask, &attributes);
    gc_ = XCreateGC(display_, window_, 0, nullptr);
    XSetForeground(display_, gc_, pixel_value(visual_, {0, 0, 0}));
    XSetGraphicsExposures(display_, gc_, False);
    XSetWMProtocols(display_, window_, &delete_window_, 1);
    const auto process = static_cast<unsigned long>(getpid());
    XChangeProperty(display_, window_, XInternAtom(display_, "_NET_WM_PID", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(&process), 1);
}

void XwinDriver::set_hints(int width, int height, const std::string& title)
{
    XSizeHints size{};
    size.flags = PSize | PMinSize | PMaxSize;
    size.width = size.min_width = size.max_width = width;
    size.height = size.min_height = size.max_height = height;
    XWMHints manager{};
    manager.flags = InputHint | StateHint;
    manager.input = True;
    manager.initial_state = NormalState;
    std::array<char, 3> name = {"kq"}, class_name = {"Kq"};
    XClassHint program{name.data(), class_name.data()};
    XSetWMProperties(display_, window_, nullptr, nullptr, nullptr, 0, &size, &manager, &program);
    XSetIconName(display_, window_, "kq");
    set_title(title);
}

void XwinDriver::set_title(const std::string& title)
{
    if (connected_) XStoreName(display_, window_, title.c_str());
}

void XwinDriver::show_pointer()
{
    if (connected_) XDefineCursor(display_, window_, XCreateFontCursor(display_, XC_left_ptr));
}

// ---- showing ----------------------------------------------------------------------------------------------

void XwinDriver::present(const Surface& picture, const Palette& palette, std::span<const Rect> changed)
{
    while (connected_ && under_way_) {
        XEvent event;
        XNextEvent(display_, &event);
        handle(event);
    }
    if (!connected_) return;
    for (; pixels_known_ < palette.size(); pixels_known_++) {
        const auto index = static_cast<std::uint8_t>(pixels_known_);
        pixels_[index] = static_cast<std::uint32_t>(pixel_value(visual_, palette.colour(index)));
    }
    for (const Rect& rect : changed) {
        image_->convert(picture, rect, pixels_);
        image_->put(window_, gc_, rect);
    }
    XEvent marker{}; // comes back to us when the server has done the above
    marker.xclient.type = ClientMessage;
    marker.xclient.window = window_;
    marker.xclient.message_type = presented_;
    marker.xclient.format = 32;
    XSendEvent(display_, window_, False, NoEventMask, &marker);
    under_way_ = true;
    XFlush(display_);
}

void XwinDriver::redraw(const Rect& exposed)
{
    const Rect inside = intersection(exposed, image_->bounds());
    if (!inside.empty()) image_->put(window_, gc_, inside);
    // A window manager may give the window another size than it asked for: the rest is black.
    const auto blacken = [&](int x, int y, int width, int height) {
        const Rect rest = intersection(exposed, {x, y, width, height});
        if (!rest.empty())
            XFillRectangle(display_, window_, gc_, rest.x, rest.y, static_cast<unsigned>(rest.width),
                           static_cast<unsigned>(rest.height));
    };
    const Rect bounds = image_->bounds();
    blacken(bounds.width, 0, Surface::max_size, Surface::max_size);
    blacken(0, bounds.height, bounds.width, Surface::max_size);
}

// ---- events -----------------------------------------------------------------------------------------------

int XwinDriver::wait_key()
{
    for (;;) {
        if (!connected_) std::exit(1); // asked for a key while the loss of the connection is being handled
        if (focus_changed_) {
            focus_changed_ = false;
            return refresh;
        }
        if (!keys_.empty()) {
            const int code = keys_.front();
            keys_.pop_front();
            return code;
        }
        XEvent event;
        XNextEvent(display_, &event);
        handle(event);
    }
}

bool XwinDriver::key_waiting()
{
    while (connected_ && XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        handle(event);
    }
    return !keys_.empty();
}

bool XwinDriver::take_waiting(int code)
{
    if (!key_waiting()) return false;
    const auto found = std::find(keys_.begin(), keys_.end(), code);
    if (found == keys_.end()) return false;
    keys_.erase(keys_.begin(), found + 1);
    return true;
}

void XwinDriver::handle(XEvent& event)
{
    switch (event.type) {
    case KeyPress:
        handle_key(event.xkey);
        break;
    case KeyRelease:
        if (event.xkey.keycode == held_) held_ = 0;
        break;
    case Expose:
        redraw({event.xexpose.x, event.xexpose.y, event.xexpose.width, event.xexpose.height});
        break;
    case FocusIn:
    case FocusOut:
        handle_focus(event.xfocus);
        break;
    case MappingNotify:
        XRefreshKeyboardMapping(&event.xmapping);
        if (event.xmapping.request != MappingPointer) find_modifiers();
        break;
    case ClientMessage:
        if (event.xclient.message_type == presented_)
            under_way_ = false;
        else if (static_cast<Atom>(event.xclient.data.l[0]) == delete_window_ &&
                 (keys_.empty() || keys_.back() != key::escape))
            keys_.push_back(key::escape); // one, however often it is asked for before the program gets to it
        break;
    case DestroyNotify:
        if (event.xdestroywindow.window == window_) connection_is_lost();
        break;
    default:
        break;
    }
}

void XwinDriver::handle_key(XKeyEvent& event)
{
    std::array<char, 8> text{};
    KeySym keysym = NoSymbol;
    const int length = XLookupString(&event, text.data(), static_cast<int>(text.size()), &keysym, nullptr);
    KeyStroke stroke;
    stroke.keysym = keysym;
    stroke.shift = (event.state & ShiftMask) != 0;
    stroke.control = (event.state & ControlMask) != 0;
    stroke.alt = (event.state & alt_mask_) != 0;
    stroke.num_lock = (event.state & num_lock_mask_) != 0;
    if (length == 1) stroke.character = static_cast<unsigned char>(text[0]);
    const int code = key_code_of(stroke);

    const bool repeated = knows_repeats_ && event.keycode == held_;
    held_ = event.keycode;
    if (code == 0) return;
    // A key that is held down faster than the program follows does not pile up: it stops when it is released.
    if (repeated && !keys_.empty() && keys_.back() == code) return;
    keys_.push_back(code);
}

void XwinDriver::handle_focus(const XFocusChangeEvent& event)
{
    if (event.mode == NotifyGrab || event.mode == NotifyUngrab) return; // a window manager's shortcut
    if (event.detail == NotifyPointer || event.detail == NotifyInferior) return;
    const bool has_focus = event.type == FocusIn;
    if (!has_focus) held_ = 0; // its release goes elsewhere
    if (has_focus == focused_) return;
    focused_ = has_focus;
    focus_changed_ = true;
}

// The modifiers that the Alt and NumLock keys stand for; they differ between keyboards.
void XwinDriver::find_modifiers()
{
    const auto mask = [&](KeySym keysym, unsigned usual) {
        const unsigned found = XkbKeysymToModifiers(display_, keysym);
        return found != 0 ? found : usual;
    };
    alt_mask_ = mask(XK_Alt_L, Mod1Mask);
    num_lock_mask_ = mask(XK_Num_Lock, Mod2Mask);
}

int note_lost_connection(Display*)
{
    connected_driver->connection_is_lost();
    return 0;
}

void XwinDriver::connection_is_lost()
{
    if (!connected_) return;
    connected_ = false;
    connection_number = -1;
    lost_();
}

} // namespace

std::unique_ptr<Driver> make_xwin_driver(std::function<void()> lost)
{
    return std::make_unique<XwinDriver>(std::move(lost));
}

bool cut_xwin_connection() noexcept
{
    const int number = connection_number;
    return number >= 0 && shutdown(number, SHUT_RDWR) == 0;
}

} // namespace kq
