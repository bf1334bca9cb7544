#include "edits/export_models.h"

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "edits/apply_edits.h"
#include "edits/export_targets.h"
#include "edits/export_texts.h"
#include "edits/last_path.h"
#include "ifc/io/io_texts.h"
#include "ifc/io/log_file.h"
#include "ifc/io/parser.h"
#include "ifc/io/parser_texts.h"
#include "ifc/io/paths.h"
#include "ifc/io/writer.h"
#include "ifc/model/model.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/same_file.h"
#include "platform/shell_open.h"
#include "platform/text.h"

namespace IFC {
namespace {

// Flags and answers of the host's message boxes, which are those of Win32.
constexpr std::uint32_t kInformation = 64;
constexpr std::uint32_t kYesNoWarning = 52;
constexpr std::int32_t kAnswerYes = 6;

/// The parser tells 0 to 80 in each of its two passes.
constexpr int kPassPercent = 80;

/// The log of one export: beside the first file, removed when nothing was reported.
class ExportLog {
public:
    ExportLog(const ErrorReporter& reporter, const std::u16string& firstPath)
        : reporter_(reporter), isOpen_(!firstPath.empty() && LogFile::instance().open(firstPath)) {}
    ~ExportLog() { close(); }
    ExportLog(const ExportLog&) = delete;
    ExportLog& operator=(const ExportLog&) = delete;

    LogFile* file() const { return isOpen_ ? &LogFile::instance() : nullptr; }
    bool wasOpened() const { return wasOpened_; }
    const std::u16string& path() const { return LogFile::instance().path(); }

    void close() {
        if (!std::exchange(isOpen_, false))
            return;
        LogFile::instance().close();
        if (!reporter_.errorSeen())
            platform::removeFile(path());
    }

private:
    const ErrorReporter& reporter_;
    bool isOpen_;
    const bool wasOpened_ = isOpen_;
};

/// The two bars of the host's progress window, or of ours when the host has none; hidden at the
/// end.
class ExportProgress {
public:
    ExportProgress(const HostCalls& host, const ExportOptions& options)
        : host_(host), overallLabel_(host.text(texts::kOverallProgressLabelKey)) {
        const std::u16string title = host_.text(texts::kProgressCaptionKey);
        if (options.openProgress && !host_.hasProgressBar())
            own_ = options.openProgress(title);
        if (!own_)
            host_.showProgressBar(true, title);
        currentLabel_ = host.text(texts::kCurrentProgressLabelKey);
        show(0);
    }
    ~ExportProgress() {
        overallPercent_ = 100;
        show(100);
        if (!own_)
            host_.showProgressBar(false, {});
    }
    ExportProgress(const ExportProgress&) = delete;
    ExportProgress& operator=(const ExportProgress&) = delete;

    void beginStep(double overallPercent, const char* labelKey, const std::u16string& name) {
        overallPercent_ = overallPercent;
        currentLabel_ = host_.text(labelKey);
        if (!currentLabel_.empty() && !currentLabel_.ends_with(u' '))
            currentLabel_ += u' ';
        currentLabel_ += name;
        show(0);
    }
    void show(int currentPercent) const {
        const auto overallPercent = static_cast<std::int32_t>(overallPercent_);
        if (own_)
            own_->show(overallPercent, overallLabel_, currentPercent, currentLabel_);
        else
            host_.updateProgressBar(overallPercent, overallLabel_, currentPercent, currentLabel_);
    }
    /// Whether the user has pressed "cancel" since the last time.
    bool takeCancel() const { return own_ && own_->takeCancel(); }

private:
    const HostCalls& host_;
    const std::u16string overallLabel_;
    std::unique_ptr<ProgressView> own_;
    std::u16string currentLabel_;
    double overallPercent_ = 0;
};

bool mayCancel() {
    return platform::showMessageBox(
               texts::kCancelQuestion, texts::kCancelCaption, platform::MessageButtons::YesNo,
               platform::MessageIcon::Question) == platform::MessageAnswer::Yes;
}

class Export {
public:
    Export(EditSession& session, const ExportOptions& options)
        : session_(session), options_(options) {}

    void run() {
        if (session_.host.allObjectsCount() == 0) {
            const std::u16string caption = text(texts::kExportCaptionKey);
            session_.host.messageBox(caption.empty() ? texts::kExportCaption : caption,
                                     text(texts::kNoFileSelectedKey), 0);
            return;
        }
        session_.files.refresh(session_.host, session_.store);
        session_.reporter.clearError();
        ErrorReporter::Collecting reports(session_.reporter);
        ExportLog log(session_.reporter, firstPath());
        noteNamesakes(log);
        const std::vector<std::u16string> sources = exportable();
        if (sources.empty()) {
            session_.host.messageBox(text(texts::kNoActiveProjectCaptionKey),
                                     text(texts::kNoActiveProjectKey), kInformation);
            return;
        }
        const auto chosen = askTarget(sources);
        if (!chosen)
            return;
        const std::vector<ExportJob> jobs = exportJobs(sources, *chosen);
        if (!mayOverwrite(jobs))
            return;
        const std::size_t written = exportAll(jobs, log);
        log.close();
        if (!session_.reporter.errorSeen() || !log.wasOpened())
            return;  // without a log the reports themselves are shown
        reports.endWith(ErrorReporter::Collecting::End::Silent);
        offerLog(log.path(), written > 0);
    }

private:
    std::u16string text(const char* key) const { return session_.host.text(key); }

    std::u16string firstPath() const {
        for (const LoadedFiles::File& file : session_.files.all())
            if (!file.path.empty())
                return file.path;
        return {};
    }

    void noteNamesakes(const ExportLog& log) const {
        for (const std::u16string& path : session_.files.namesakes())
            if (log.file())
                log.file()->write(std::u16string(texts::kNamesakes) + normalisedFileName(path));
    }

    /// The paths of the loaded files that can be written; the others are reported.
    std::vector<std::u16string> exportable() {
        std::vector<std::u16string> paths;
        for (const LoadedFiles::File& file : session_.files.all()) {
            if (file.path.empty())
                continue;
            // Of a model in a project file the entry's own extension counts.
            const std::u16string extension = FileStream::extensionOf(normalisedFileName(file.path));
            if (extension == texts::kIfcExtension || extension == texts::kIfcZipExtension)
                paths.push_back(file.path);
            else
                session_.reporter.report(texts::kCouldNotOpenFileExtensionKey, file.path);
        }
        return paths;
    }

    /// Empty when the user cancelled.
    std::optional<std::u16string> askTarget(const std::vector<std::u16string>& sources) const {
        const HostCalls& host = session_.host;
        const bool isSeveral = sources.size() > 1;
        const std::u16string extension = FileStream::extensionOf(normalisedFileName(sources[0]));
        using Text = std::optional<std::u16string>;
        host.setSaveDialogParams(isSeveral ? Text() : Text(text(texts::kFilterCaptionKey)),
                                 defaultExportName(sources[0]),
                                 isSeveral ? Text() : Text(extension));
        host.setSaveDialogDefaultExtension(extension);
        if (!host.saveDialog(isSeveral))
            return std::nullopt;
        std::u16string chosen = host.saveDialogName();
        return chosen.empty() ? Text() : Text(std::move(chosen));
    }

    bool mayOverwrite(const std::vector<ExportJob>& jobs) const {
        const bool anyExists = std::any_of(jobs.begin(), jobs.end(), [](const ExportJob& job) {
            return std::any_of(job.mustNotExist.begin(), job.mustNotExist.end(),
                               platform::fileExists);
        });
        return !anyExists ||
               session_.host.messageBox(text(texts::kFilesExistCaptionKey),
                                        text(texts::kFilesExistKey), kYesNoWarning) == kAnswerYes;
    }

    /// @return how many files were written.
    std::size_t exportAll(const std::vector<ExportJob>& jobs, const ExportLog& log) {
        ExportProgress progress(session_.host, options_);
        const double step = 50.0 / static_cast<double>(jobs.size());
        double overall = 0;
        std::size_t written = 0;
        for (const ExportJob& job : jobs) {
            const double end = overall + 2 * step;
            try {
                if (exportOne(job, jobs.size() == 1, overall + step, end, progress, log))
                    ++written;
            } catch (const std::bad_alloc&) {
                session_.reporter.report("", texts::kOutOfMemory);
            } catch (const std::exception& fault) {
                session_.reporter.report("", platform::fromUtf8(fault.what()));
            }
            if (isCancelled_)
                break;
            overall = end;
        }
        return written;
    }

    bool exportOne(const ExportJob& job, bool isOnly, double readPercent, double writePercent,
                   ExportProgress& progress, const ExportLog& log) {
        progress.beginStep(readPercent, texts::kReadingFileKey, job.source);
        if (!isOnly && isLoaded(job.target)) {
            session_.reporter.report("", std::u16string(texts::kTargetIsLoaded) + job.target);
            return false;
        }
        ModelParser parser(session_.reporter.callback(), parserOptions(progress, log));
        if (!parser.load(job.source)) {
            isCancelled_ = parser.state() == ModelParser::State::Cancelled;
            return false;
        }
        if (const FileEdits* edits = session_.store.find(job.source))
            applyEdits(*parser.model(), *edits, session_.reporter.callback());
        progress.beginStep(writePercent, texts::kSavingFileKey, job.target);
        ModelWriter writer(session_.reporter.callback(), [this, &progress](int percent, int) {
            progress.show(percent);
            isCancelled_ = progress.takeCancel() && mayCancel();
            return !isCancelled_;
        });
        if (!writer.write(*parser.model(), job.target))
            return false;
        if (!writeLastPath(options_.pluginFolder, job.target))
            session_.reporter.report(
                "", std::u16string(texts::kLastPathNotWritten) + options_.pluginFolder);
        return true;
    }

    /// A single file may replace itself, because it is read before it is written and its name was
    /// chosen. Among several, one could replace another that has not been read yet.
    bool isLoaded(const std::u16string& target) const {
        const auto& files = session_.files.all();
        return std::any_of(files.begin(), files.end(), [&](const LoadedFiles::File& file) {
            return !file.path.empty() && platform::isSameFile(file.path, target);
        });
    }

    ModelParser::Options parserOptions(ExportProgress& progress, const ExportLog& log) const {
        ModelParser::Options options;
        options.ignoreEnumerationErrors = options_.ignoreEnumerationErrors;
        options.continueQuestion = [question = text(texts::kContinueQuestionKey)] {
            return platform::showMessageBox(
                       question, texts::kExportCaption, platform::MessageButtons::YesNo,
                       platform::MessageIcon::Question) == platform::MessageAnswer::Yes;
        };
        options.progress = [&progress, last = 0, done = 0](int percent, int) mutable {
            if (percent < last)
                done = kPassPercent;  // the second pass
            last = percent;
            progress.show((done + percent) * 100 / (2 * kPassPercent));
            return !progress.takeCancel();  // the parser asks whether that is meant
        };
        options.log = log.file();
        return options;
    }

    void offerLog(const std::u16string& logPath, bool anyWritten) {
        const auto answer = platform::showMessageBox(
            text(anyWritten ? texts::kFilesWithWarningsKey : texts::kShowLogQuestionKey),
            texts::kExportCaption, platform::MessageButtons::YesNo,
            anyWritten ? platform::MessageIcon::Information : platform::MessageIcon::Error);
        if (answer != platform::MessageAnswer::Yes)
            return;
        session_.reporter.clearError();
        if (!platform::openWithDefaultProgram(logPath))
            session_.reporter.report(texts::kCouldNotOpenFileKey, logPath);
    }

    EditSession& session_;
    const ExportOptions& options_;
    bool isCancelled_ = false;
};

}  // namespace

void exportModels(EditSession& session, const ExportOptions& options) {
    Export(session, options).run();
}

}  // namespace IFC
