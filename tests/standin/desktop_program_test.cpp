// The program itself, with a script. It loads the plug-in that lies beside it, if there is one;
// what is tested here does not depend on it.

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QSet>

#include "platform/whole_file.h"
#include "standin/desktop/qt_text.h"
#include "tests/support/temp_folder.h"

namespace {

struct Result {
    int status = -1;
    QString output;
};

Result ran(const QStringList& arguments, const QStringList& environment = {}) {
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.setEnvironment(QProcess::systemEnvironment() + environment);
    program.start(QStringLiteral(DESKTOP_PROGRAM), arguments);
    if (!program.waitForFinished(40'000)) {
        ADD_FAILURE() << "the program hangs";
        program.kill();
        program.waitForFinished();
        return {};
    }
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), QString::fromUtf8(program.readAll())};
}

/// A script with the recording plug-in and the sample house open.
QString scriptWith(const TempFolder& folder, const std::string& lines) {
    return toQString(folder.write(u"script.txt", "load " RECORDING_PLUGIN
                                                 "\nopen \"" QUILLET_SOURCE_DIR
                                                 "/samples/sample_house.ifc\"\n" +
                                                     lines));
}

TEST(DesktopProgram, RunsAScriptAndTakesPictures) {
    const TempFolder folder;
    const QString picture = toQString(folder / u"Bild \u00DF.png");
    const QString script =
        scriptWith(folder,
                   "tree-select #65\nexpect-row propertyTree Colour \"red, 'oxblood'\"\n"
                   "resize 1000x700\nscreenshot \"" +
                       QDir::fromNativeSeparators(picture).toStdString() + "\" main\n");
    for (const int scale : {1, 2}) {
        const Result result = ran({QStringLiteral("--script"), script},
                                  {QStringLiteral("QT_SCALE_FACTOR=%1").arg(scale)});
        EXPECT_EQ(result.status, 0) << result.output.toStdString();
        EXPECT_TRUE(result.output.contains(QLatin1String("expectations held: 1, failed: 0")));
        const QImage image(picture);
        EXPECT_EQ(image.size(), QSize(1000, 700) * scale);
        QSet<QRgb> colours;
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, image.height() / 2));
        EXPECT_GT(colours.size(), 2) << "an empty picture";
    }
}

TEST(DesktopProgram, EndsWithTheStatusOfItsScript) {
    const TempFolder folder;
    const std::pair<std::string, std::pair<int, const char*>> cases[] = {
        {"expect-text objectCount many\n", {1, "script.txt:3: expected objectCount"}},
        {"\nwave\n", {2, "script.txt:4: there is no such action: wave"}},
        // A window that is open at the end does not keep the program.
        {"key Ctrl+O\nwindow Open\n", {0, "held: 0"}},
        {"key Ctrl+O\nwindow Open\nwave\n", {2, "script.txt:5: there"}},
    };
    for (const auto& [lines, expected] : cases) {
        const Result result = ran({QStringLiteral("--script"), scriptWith(folder, lines)});
        EXPECT_EQ(result.status, expected.first) << lines;
        EXPECT_TRUE(result.output.contains(QLatin1String(expected.second)))
            << result.output.toStdString();
    }
}

TEST(DesktopProgram, UnderstandsItsArguments) {
    const std::pair<QStringList, std::pair<int, const char*>> cases[] = {
        {{QStringLiteral("--help")}, {0, "tree-select OBJECT..."}},
        {{QStringLiteral("--dance")}, {2, "there is no such option: --dance"}},
        {{QStringLiteral("--script")}, {2, "needs something behind it: --script"}},
        {{QStringLiteral("--script"), QStringLiteral("none.txt")}, {2, "none.txt: cannot be read"}},
        {{QStringLiteral("--language"), QStringLiteral("xx")}, {2, "no such language: xx"}},
    };
    for (const auto& [arguments, expected] : cases) {
        const Result result = ran(arguments);
        EXPECT_EQ(result.status, expected.first);
        EXPECT_TRUE(result.output.contains(QLatin1String(expected.second)))
            << result.output.toStdString();
    }
#ifndef Q_OS_WIN  // which always has one
    EXPECT_EQ(
        ran({}, {QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY=:999")}).status, 2)
        << "there is no screen";
#endif
    // A model on the command line is open when the script begins.
    const TempFolder folder;
    const QString script =
        toQString(folder.write(u"s.txt", "expect-text objectCount \"8 objects\"\n"));
    EXPECT_EQ(ran({QStringLiteral("--language"), QStringLiteral("de"), QStringLiteral("--script"),
                   script, QStringLiteral(QUILLET_SOURCE_DIR "/samples/sample_house.ifc")})
                  .status,
              0);
}

}  // namespace
