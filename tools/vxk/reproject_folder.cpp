// vxk reproject with many files: every shape file of the sources into one destination folder, by
// several processes side by side. The library serves one call at a time in a process (PROJ's default
// context and its buffers are shared), so the files go to child processes, each of which runs the
// one-file job with its safe output. A child tells its progress and counts to the parent on its
// standard error, in lines that start with kControl; every other line it writes there is a message for
// the user, which the parent passes on whole, so that messages of two children never mix.
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "numbers.h"
#include "report.h"
#include "reproject.h"
#include "safe_output.h"
#include "shape_facts.h"

namespace vxk::reproject {

namespace {

namespace fs = std::filesystem;

constexpr char kControl = '\x1e';

struct task {
  std::string src, dst;
  std::uint32_t records = 0;
  int status = kFailed;
  vx_proj4_shp_counts counts{};
  bool table_damaged = false;
};

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

bool is_shp(const fs::path& p) {
  return lower(p.extension().string()) == ".shp";
}

// The .shp files directly in a folder, in the order of their names.
std::string shape_files_in(const std::string& folder, std::vector<std::string>& files) {
  std::vector<std::string> found;
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code type_ec;
    if (is_shp(it->path()) && it->is_regular_file(type_ec)) found.push_back(it->path().string());
  }
  if (ec) return "cannot read the folder '" + echo(folder) + "': " + ec.message();
  std::sort(found.begin(), found.end());
  files.insert(files.end(), found.begin(), found.end());
  return {};
}

// The shape files of the sources (a folder gives those directly in it) and their destinations; an
// error text, empty when every source has one place in the destination folder.
std::string collect(const options& opt, std::vector<task>& tasks) {
  std::vector<std::string> files;
  for (const std::string& src : opt.sources) {
    std::error_code ec;
    if (fs::is_directory(src, ec)) {
      if (std::string err = shape_files_in(src, files); !err.empty()) return err;
    } else if (!is_shp(src)) {
      return "the source '" + echo(src) + "' is neither a folder nor a .shp file";
    } else {
      files.push_back(src);
    }
  }
  if (files.empty()) return "there is no shape file (.shp) in the sources";
  std::set<std::string> names;
  for (const std::string& f : files) {
    const std::string name = fs::path(f).filename().string();
    const std::string dst = (fs::path(opt.dst) / name).string();
    if (!names.insert(lower(name)).second) {
      return "two sources are named '" + echo(name) + "'; their results would take one place in '" +
             echo(opt.dst) + "'";
    }
    if (same_file(f, dst)) {
      return "the destination '" + echo(dst) + "' is the source '" + echo(f) +
             "' (the same file); give another destination folder";
    }
    tasks.push_back({f, dst, shape_facts::record_count(f)});
  }
  return {};
}

// In a child: tells the parent how far the file has come, at most some 200 times per file.
struct child_progress {
  std::uint32_t told = 0;

  static void update(std::uint32_t done, std::uint32_t total, void* user) {
    auto* p = static_cast<child_progress*>(user);
    const std::uint32_t step = std::max<std::uint32_t>(1, total / 200);
    if (done != total && done - p->told < step) return;
    p->told = done;
    std::fprintf(stderr, "%cp %u\n", kControl, done);
  }
};

// The child's whole life: the one-file job with its messages and control lines on `fd`.
[[noreturn]] void child_main(const options& opt, const task& t, int fd) {
  ::dup2(fd, STDERR_FILENO);
  ::close(fd);
  options one = opt;
  one.src = t.src;
  one.dst = t.dst;
  child_progress told;
  vx_proj4_shp_counts counts{};
  bool table_damaged = false;
  const int status = run_file(one, {&child_progress::update, &told}, counts, table_damaged);
  std::fprintf(stderr, "%cc %u %u %u %d\n", kControl, counts.records, counts.failed, counts.unreadable,
               table_damaged ? 1 : 0);
  std::fflush(nullptr);
  ::_exit(status);
}

// A child at work on one task, seen from the parent.
struct child {
  pid_t pid = -1;
  int fd = -1;
  task* work = nullptr;
  std::uint32_t done = 0;
  bool counted = false;
  std::string pending;
};

// Runs the tasks, at most `jobs` at a time, and keeps the progress bar over all of them.
class scheduler {
 public:
  scheduler(std::vector<task>& tasks, const options& opt, unsigned jobs, bool show)
      : tasks_(tasks), opt_(opt), jobs_(jobs), show_(show) {
    for (const task& t : tasks_) total_ += t.records;
  }

  void run() {
    while (next_ < tasks_.size() || !running_.empty()) {
      while (next_ < tasks_.size() && running_.size() < jobs_) start(tasks_[next_++]);
      if (!running_.empty()) wait_for_output();
    }
    if (show_) bar_.draw(total_, total_, note()), std::fputc('\n', stderr);
  }

 private:
  void start(task& t) {
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return failed_to_start(t, "cannot make a pipe");
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
      ::close(fds[0]);
      child_main(opt_, t, fds[1]);
    }
    const int fork_errno = errno;
    ::close(fds[1]);
    if (pid < 0) {
      ::close(fds[0]);
      errno = fork_errno;
      return failed_to_start(t, "cannot start a process");
    }
    child c;
    c.pid = pid;
    c.fd = fds[0];
    c.work = &t;
    running_.push_back(c);
  }

  void failed_to_start(task& t, const char* what) {
    message("vxk reproject: '" + echo(t.src) + "': " + what + ": " + std::strerror(errno));
    t.status = kFailed;
    ++finished_;
  }

  void wait_for_output() {
    std::vector<pollfd> fds;
    for (const child& c : running_) fds.push_back({c.fd, POLLIN, 0});
    if (::poll(fds.data(), fds.size(), -1) < 0 && errno != EINTR) return;
    for (std::size_t i = fds.size(); i-- > 0;) {
      if (fds[i].revents == 0) continue;
      if (!read_from(running_[i])) {
        end(running_[i]);
        running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    redraw();
  }

  // Takes what the child wrote; false at its end.
  bool read_from(child& c) {
    char buf[4096];
    const ssize_t n = ::read(c.fd, buf, sizeof buf);
    if (n < 0 && errno == EINTR) return true;
    if (n <= 0) return false;
    c.pending.append(buf, static_cast<std::size_t>(n));
    for (std::size_t nl; (nl = c.pending.find('\n')) != std::string::npos;) {
      take_line(c, c.pending.substr(0, nl));
      c.pending.erase(0, nl + 1);
    }
    return true;
  }

  void take_line(child& c, const std::string& line) {
    if (line.empty() || line[0] != kControl) return message(line);
    unsigned a = 0, b = 0, d = 0;
    int damaged = 0;
    if (std::sscanf(line.c_str() + 1, "p %u", &a) == 1) c.done = std::min(a, c.work->records);
    if (std::sscanf(line.c_str() + 1, "c %u %u %u %d", &a, &b, &d, &damaged) == 4) {
      c.work->counts.records = a, c.work->counts.failed = b, c.work->counts.unreadable = d;
      c.work->table_damaged = damaged != 0;
      c.counted = true;
    }
  }

  // The child has closed its output: its exit status is the task's.
  void end(child& c) {
    if (!c.pending.empty()) take_line(c, c.pending);
    ::close(c.fd);
    int status = 0;
    while (::waitpid(c.pid, &status, 0) < 0 && errno == EINTR) {
    }
    c.work->status = WIFEXITED(status) ? WEXITSTATUS(status) : kFailed;
    if (WIFSIGNALED(status)) {
      message("vxk reproject: '" + echo(c.work->src) + "': the process was ended by signal " +
              std::to_string(WTERMSIG(status)) + "; nothing was written");
    }
    if (!c.counted) c.work->status = kFailed;
    done_ += c.work->records;
    ++finished_;
  }

  void message(const std::string& line) {
    if (show_) bar_.hide();
    std::fprintf(stderr, "%s\n", line.c_str());
  }

  std::string note() const {
    return std::to_string(finished_) + "/" + std::to_string(tasks_.size()) + " files";
  }

  void redraw() {
    if (!show_) return;
    std::uint64_t done = done_;
    for (const child& c : running_) done += c.done;
    bar_.draw(done, total_, note());
  }

  std::vector<task>& tasks_;
  const options& opt_;
  unsigned jobs_;
  bool show_;
  bar bar_;
  std::vector<child> running_;
  std::size_t next_ = 0, finished_ = 0;
  std::uint64_t total_ = 0, done_ = 0;
};

unsigned jobs_for(const options& opt, std::size_t tasks) {
  long n = opt.jobs ? opt.jobs : ::sysconf(_SC_NPROCESSORS_ONLN);
  n = std::max(1L, std::min<long>(n, static_cast<long>(tasks)));
  return static_cast<unsigned>(n);
}

std::string summary(const options& opt, const std::vector<task>& tasks) {
  std::uint64_t records = 0, nulls = 0, unreadable = 0, done = 0, tables = 0;
  for (const task& t : tasks) {
    if (t.status != 0 && t.status != kDamagedSource) continue;
    ++done, records += t.counts.records, nulls += t.counts.failed, unreadable += t.counts.unreadable;
    tables += t.table_damaged ? 1 : 0;
  }
  std::string text = echo(opt.dst) + ": " + spelled(tasks.size(), "file", "files") + ", " +
                     std::to_string(done) + " reprojected, " + std::to_string(tasks.size() - done) +
                     " failed; " + counts_text(records, nulls, unreadable, "a source");
  if (tables == 1) text += "; 1 damaged source table was copied as it is";
  if (tables > 1) text += "; " + std::to_string(tables) + " damaged source tables were copied as they are";
  return text;
}

int exit_status(const std::vector<task>& tasks) {
  int status = 0;
  for (const task& t : tasks) {
    if (t.status != 0 && t.status != kDamagedSource) return kFailed;
    if (t.status == kDamagedSource) status = kDamagedSource;
  }
  return status;
}

}  // namespace

void bar::draw(std::uint64_t done, std::uint64_t total, const std::string& note_after) {
  const int percent = total ? static_cast<int>(100.0 * static_cast<double>(done) / total) : 100;
  if (percent == shown && note_after == note) return;
  shown = percent;
  note = note_after;
  const int width = 40, filled = percent * width / 100;
  std::fprintf(stderr, "\r[%s%s] %3d%% %llu/%llu%s%s", std::string(filled, '#').c_str(),
               std::string(width - filled, ' ').c_str(), percent, static_cast<unsigned long long>(done),
               static_cast<unsigned long long>(total), note.empty() ? "" : " ", note.c_str());
  std::fflush(stderr);
}

void bar::hide() {
  if (shown < 0) return;
  std::fprintf(stderr, "\r%*s\r", 80 + static_cast<int>(note.size()), "");
  shown = -1;
}

// What is said once for the whole job rather than per file: the difference from PROJ's own
// transformation over the box of all sources (when --from gives one source system), and measures.
void tell_once(options& opt, const std::vector<task>& tasks) {
  shape_facts::box all;
  bool any = false;
  std::size_t measured = 0;
  for (const task& t : tasks) {
    measured += shape_facts::carries_measures(t.src) ? 1 : 0;
    shape_facts::box b;
    if (!shape_facts::header_box(t.src, b)) continue;
    if (any)
      b = {std::min(b.xmin, all.xmin), std::min(b.ymin, all.ymin), std::max(b.xmax, all.xmax),
           std::max(b.ymax, all.ymax)};
    all = b, any = true;
  }
  tell_measures(measured);
  opt.measures_told = true;
  if (!opt.from_ready) return;
  tell_taken(opt);
  opt.taken_told = true;
  if (any) tell_difference(opt, all);
  opt.difference_told = true;
}

int run_folder(const options& given) {
  options opt = given;
  std::vector<task> tasks;
  if (std::string err = collect(opt, tasks); !err.empty()) {
    std::fprintf(stderr, "vxk reproject: %s\n", err.c_str());
    return kBadArguments;
  }
  output_set holder;  // makes the destination folder, and removes it again if nothing comes into it
  if (!holder.open(opt.dst)) {
    std::fprintf(stderr, "vxk reproject: %s; nothing was written\n", holder.error().c_str());
    return kFailed;
  }
  tell_once(opt, tasks);
  const bool show = opt.progress || ::isatty(STDERR_FILENO);
  scheduler(tasks, opt, jobs_for(opt, tasks.size()), show).run();
  const int status = exit_status(tasks);
  const bool any_done = std::any_of(
      tasks.begin(), tasks.end(), [](const task& t) { return t.status == 0 || t.status == kDamagedSource; });
  if (any_done && !holder.commit()) std::fprintf(stderr, "vxk reproject: %s\n", holder.error().c_str());
  std::printf("%s\n", summary(opt, tasks).c_str());
  return status;
}

}  // namespace vxk::reproject
