#include "replay_test.h"

#include "host/config_block.h"
#include "imagekit/media_widgets.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"

namespace {

using namespace replay;

class Session : public ReplayTest {
protected:
    void SetUp() override { load(colouredPages()); }
};

TEST_F(Session, BeginsWithTheFirstPageAndNoFrame) {
    EXPECT_EQ(answersTo("state\npixel 3 4\nmedia\nmedia\nsent"),
              "page=0 popup=0 popup_x=0 popup_y=0 dim=0 volume=8 language=0 busy=0 encoder=0 frames=0\n"
              "pixel 3 4 #ffff0000\n"
              "volume 48\n"
              "media none\n"
              "sent none\n");
}

TEST_F(Session, RunsACycleAtEachSecondTick) {
    const auto framesAfter = [this](const char* script) {
        const std::string state = answersTo(QString(script) + "\nstate");
        return state.substr(state.find("frames="));
    };
    const std::pair<const char*, const char*> steps[] = {
        {"run 10", "frames=0\n"},          {"run 10", "frames=1\n"},  {"run 30", "frames=2\n"},
        {"tick 5", "frames=2\n"},          {"run 10", "frames=3\n"}, // ticks alone keep the rhythm
        {"cycle", "frames=4\n"},           {"cycle 3", "frames=7\n"}, {"tap 1 1", "frames=13\n"},
        {"drag 1 1 5 5 40", "frames=19\n"}}; // the press, two moves, and 60 ms behind the release
    for (const auto& [script, frames] : steps) EXPECT_EQ(framesAfter(script), frames) << script;
}

TEST_F(Session, ChangesPagesForTheHostAtOnceAndForTheInspectorInACycle) {
    EXPECT_EQ(answersTo("write 0x7000 1\npixel 0 0\nset 0x7000 2\npixel 0 0\nrun 20\npixel 0 0"),
              "pixel 0 0 #ff00ff00\npixel 0 0 #ff00ff00\npixel 0 0 #ff0000ff\n");
    EXPECT_EQ(run("expect page 2\nexpect word 0x7000 2\nwrite 0x7000 9\nrun 40\nexpect page 2"),
              Outcome::Passed);
}

TEST_F(Session, WritesWordsAsTheHostDoesWithAndWithoutCheckBytes) {
    const QString longest = "write 0x100" + QString(" 1").repeated(125);
    for (const bool withoutCheck : {false, true}) {
        load(colouredPages({.NoCRC = withoutCheck}));
        EXPECT_EQ(answersTo("write 0x10 5 0x0a -1\nread 0x0f 5"), "0x000f: 0000 0005 000a ffff 0000\n");
        EXPECT_EQ(answersTo(longest + "\nread 0x17b 3"), "0x017b: 0001 0001 0000\n");
    }
    EXPECT_EQ(answersTo("host 05 10 00 22 00 09\nread 0x22"), "0x0022: 0009\n");
}

TEST_F(Session, WritesWordsAsTheInspectorDoes) {
    EXPECT_EQ(answersTo("set 0x5fff -1\nread 0x5fff\nset 0x700b 99\nstate"),
              "0x5fff: ffff\n"
              "page=0 popup=0 popup_x=0 popup_y=0 dim=0 volume=16 language=0 busy=0 encoder=0 frames=0\n");
    EXPECT_EQ(answersTo("media\nrun 20\nmedia\nset 0x7001 0\nexpect word 0x7001 0\nstate"),
              "volume 48\nclose-video\nstop-music\nvolume 96\n"
              "page=0 popup=0 popup_x=0 popup_y=0 dim=255 volume=16 language=0 busy=0 encoder=0 frames=1\n");
}

TEST_F(Session, FeedsPointerAndKeysByTheRulesOfTheWindow) {
    const std::pair<const char*, int> steps[] = {{"press 5 6", 1},
                                                 {"press -1 6", 1}, // left of the panel changes nothing
                                                 {"move -1 6", 0},  // a move to there ends the press
                                                 {"press 63 47\nrelease", 0},
                                                 {"drag 10 0 50 20 80\nkey 3", 0}};
    for (const auto& [script, pressed] : steps) {
        run(script);
        EXPECT_EQ(panel::TouchPressed, pressed) << script;
    }
    EXPECT_EQ(QPoint(panel::TouchStartX, panel::TouchStartY), QPoint(10, 0));
    EXPECT_EQ(QPoint(panel::TouchX, panel::TouchY), QPoint(50, 20));
    EXPECT_EQ(panel::EncoderEvent, 4);
}

TEST_F(Session, AwaitsNoLongerThanNeeded) {
    EXPECT_EQ(answersTo("set 0x7000 1\nawait 200 page 1\nawait 200 pixel 0 0 #00ff00\nstate"),
              "page=1 popup=0 popup_x=0 popup_y=0 dim=0 volume=8 language=0 busy=0 encoder=0 frames=1\n");
    EXPECT_EQ(run("await 100 word 5 7\nstate"), Outcome::Failed);
    EXPECT_EQ(diagnostics(), "test:1: expected word 0x0005 0007 within 100 ms, got 0000\n");
    EXPECT_NE(answerStream.str().find("frames=6"), std::string::npos) << answerStream.str();
}

TEST_F(Session, TellsEachExpectationThatDoesNotHoldAndGoesOn) {
    EXPECT_EQ(run("expect page 1\nexpect word 0x7000 1\nexpect pixel 1 2 #00ff00\nexpect pixel 1 2 #ff0000\n"
                  "expect sent 41 00\nexpect sent none\nsent"),
              Outcome::Failed);
    EXPECT_EQ(diagnostics(), "test:1: expected page 1, got 0\n"
                             "test:2: expected word 0x7000 0001, got 0000\n"
                             "test:3: expected pixel 1 2 #ff00ff00, got #ffff0000\n"
                             "test:5: expected sent 41 00, got none\n");
    EXPECT_EQ(answerStream.str(), "sent none\n");
}

TEST_F(Session, EndsAtACommandThatCannotBeCarriedOut) {
    for (const char* line :
         {"pixel 64 0", "expect pixel 0 48 #000000", "frame {}/x.png ListSurfaceA", "frame {}/no/x.png",
          "load {}/no.bin", "load {}", "nonsense", "text 0 gbk \"x"}) {
        EXPECT_EQ(run(QString("\n%1\nstate").arg(line)), Outcome::Error) << line;
        EXPECT_EQ(diagnostics().substr(0, 8), "test:2: ") << line;
        EXPECT_EQ(answerStream.str(), "") << line;
        load(colouredPages());
    }
}

TEST_F(Session, TellsWhatIsToBePlayedAndWhere) {
    using namespace imagekit;
    for (const std::uint8_t chip : {5, 4}) {
        auto image = colouredPages({.ICType = chip});
        image.addSound({1, 2, 3});
        image.page(1).add(VideoPlayer{.Number = 7, .X1 = 1, .Y1 = 2, .X2 = 20, .Y2 = 11, .Mode = 4});
        image.page(2).add(CameraView{.ControlAddress = 0x100, .X1 = 3, .Y1 = 4, .X2 = 12, .Y2 = 8});
        writeFile("Video/0007.avi", "");
        writeFile("Music/a0000.wav", "");
        load(image);
        run("run 20\nmedia");
        EXPECT_EQ(answersTo("write 0x700a 0x8001\nrun 20\nmedia"),
                  chip == 5 ? "wav ready=1 bytes=0 repeat=1 file=Music/a0000.wav\n"
                            : "wav ready=1 bytes=6 repeat=1 file=\n");
        const std::string video = "video mode=4 x=1 y=2 w=20 h=10 file=Video/0007.avi\n";
        EXPECT_EQ(answersTo("write 0x7000 1\nrun 40\nmedia").find(video) != std::string::npos, chip == 5);
        run("write 0x7000 2\nwrite 0x100 1\nrun 20");
        EXPECT_NE(answersTo("media").find("camera x=3 y=4 w=10 h=5 group=65535\n"), std::string::npos);
    }
}

TEST_F(Session, LoadsAnotherImage) {
    writeImage(colouredPages({.StartPage = 2, .Volume = 3}), "other.bin");
    EXPECT_EQ(answersTo("write 0x10 1\nmedia\nload {}/other.bin\nmedia\npixel 0 0\nread 0x10"),
              "volume 48\nvolume 18\npixel 0 0 #ff0000ff\n0x0010: 0000\n");
}

TEST_F(Session, ShowsTheErrorFrameOfAnIllegalImage) {
    auto illegal = colouredPages();
    illegal.patch(0xF0, {1}); // a start value that the check covers
    load(illegal);
    EXPECT_EQ(answersTo("pixel 40 40\nrun 100\ncycle 5\nstate"),
              "pixel 40 40 #ff00a2ff\n"
              "page=0 popup=0 popup_x=0 popup_y=0 dim=31 volume=8 language=0 busy=0 encoder=0 frames=1\n");
    for (const char* line : {"set 1 1", "write 1 1", "text 1 gbk a", "host 03"})
        EXPECT_EQ(run(line), Outcome::Error) << line;
    load(colouredPages());
    EXPECT_EQ(run("set 1 1\npixel 0 0"), Outcome::Passed);
}

TEST_F(Session, HashesWhatMustNotDiffer) {
    const std::string first = answersTo("hash");
    EXPECT_EQ(first.size(), std::string("hash frame= words=\n").size() + 2 * 40);
    EXPECT_EQ(answersTo("run 100\nhash"), first);
    const std::string written = answersTo("set 5 1\nhash");
    EXPECT_EQ(written.substr(0, 51), first.substr(0, 51));
    EXPECT_NE(written, first);
    EXPECT_NE(answersTo("write 0x7000 1\nhash").substr(0, 51), first.substr(0, 51));
}

} // namespace
