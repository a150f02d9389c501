// The door camera, broken in one place at a time: what its author reads.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/command_test.h"

namespace {

class DoorCameraTest : public CommandTest {
protected:
    // Expects the example with the first `wrong` in place of `right` to be
    // reported so. Notes that the example has anyway are left out.
    void AssertReports(const std::string& right,
                       const std::string& wrong,
                       const std::string& report) {
        std::string text = readFile(QVGRAPH_EXAMPLES "/door-camera.json");
        const size_t place = text.find(right);
        ASSERT_NE(place, std::string::npos) << right;
        text.replace(place, right.size(), wrong);
        folder.write("door.json", text);
        EXPECT_EQ(Run({"check", "-q", "--ignore", "option-overridden,key-order", "door.json"}).out,
                  report);
    }
};

TEST_F(DoorCameraTest, AMisspeltStream) {
    AssertReports(
        R"("stream_input": "raw_frames")",
        R"("stream_input": "raw_frame")",
        R"(door.json:48:25: warning: no node of the pipe gives the stream 'raw_frame' [no-producer]
   48 |         "stream_input": "raw_frame",
      |                         ^~~~~~~~~~~
      = hint: write 'raw_frames', if that stream is meant
)");
}

TEST_F(DoorCameraTest, AMissingFormat) {
    AssertReports(
        R"("stream_output": "raw_frames",
        "stream_fmt_out": "image:bayer12")",
        R"("stream_output": "raw_frames")",
        R"(door.json:36:9: error: the output stream 'raw_frames' has no format: "stream_fmt_out" is missing, which throws [stream-format-missing]
   36 |         "stream_output": "raw_frames"
      |         ^~~~~~~~~~~~~~~
      = hint: add "stream_fmt_out": "..." to "stream_opts"
)");
}

TEST_F(DoorCameraTest, ACommaTooMany) {
    AssertReports(R"("fps": 25
)",
                  R"("fps": 25,
)",
                  R"(door.json:34:7: error: expected '"' in object, got '}' (125) [syntax]
   34 |       },
      |       ^
      = hint: remove the comma before this bracket
)");
}

TEST_F(DoorCameraTest, AMissingComma) {
    AssertReports(R"("fps": 25
      },)",
                  R"("fps": 25
      })",
                  R"(door.json:35:7: error: expected ',' in object, got '"' (34) [syntax]
   35 |       "stream_opts": {
      |       ^
      = hint: write a comma before this key
)");
}

TEST_F(DoorCameraTest, ANodeWithoutAName) {
    AssertReports(R"("node_name": "ImageTuner")",
                  R"("name": "ImageTuner")",
                  R"(door.json:41:7: error: "node_name" is missing: no node is made [node-name]
   41 |       "node_opts": {
      |       ^~~~~~~~~~~
      = hint: add "node_name": "..." with the node's class
)");
}

TEST_F(DoorCameraTest, ALoneOutputWithAnIndex) {
    AssertReports(
        R"("stream_output": "frames")",
        R"("stream_output_0": "frames")",
        R"(door.json:50:9: error: 'stream_output_0' is the node's only output, whose name is looked up as "stream_output": aborts the process [single-stream-key]
   50 |         "stream_output_0": "frames",
      |         ^~~~~~~~~~~~~~~~~
      = hint: rename it to "stream_output"
)");
}

TEST_F(DoorCameraTest, OneOfTwoInputsWithoutAnIndex) {
    AssertReports(
        R"("stream_input_0": "persons")",
        R"("stream_input": "persons")",
        R"(door.json:109:9: error: 'stream_input' is one of 2 inputs, but several are looked up as 'stream_input_<k>' alone: aborts the process [stream-keys-mixed]
  109 |         "stream_input": "persons",
      |         ^~~~~~~~~~~~~~
door.json:111:9: note: another input is here
  111 |         "stream_input_1": "faces",
      |         ^~~~~~~~~~~~~~~~
      = hint: rename it to 'stream_input_0', and its format likewise
)");
}

TEST_F(DoorCameraTest, AnotherFormatThanIsGiven) {
    AssertReports(
        R"("stream_fmt_in": "image:bayer12")",
        R"("stream_fmt_in": "image:bayer10")",
        R"(door.json:49:26: warning: the stream 'raw_frames' is taken as 'image:bayer10', but 'node_0' gives it as 'image:bayer12' [format-mismatch]
   49 |         "stream_fmt_in": "image:bayer10",
      |                          ^~~~~~~~~~~~~~~
door.json:37:27: note: its format is given here
   37 |         "stream_fmt_out": "image:bayer12"
      |                           ^~~~~~~~~~~~~~~
      = hint: give both ends of the stream one format
)");
}

TEST_F(DoorCameraTest, TwoProducersOfOneStream) {
    AssertReports(
        R"("stream_output": "faces")",
        R"("stream_output": "persons")",
        R"(door.json:100:26: error: the stream 'persons' is given by 'node_4' already: it is refused, the node is not initialised, and success is reported [two-producers]
  100 |         "stream_output": "persons",
      |                          ^~~~~~~~~
door.json:86:26: note: given here first
   86 |         "stream_output": "persons",
      |                          ^~~~~~~~~
      = hint: give each stream a name of its own
)");
}

TEST_F(DoorCameraTest, AnIdWithAZeroBeforeIt) {
    AssertReports(
        R"("node_3": {
      "node_opts": {"node_name": "Scaler)",
        R"("node_03": {
      "node_opts": {"node_name": "Scaler)",
        R"(door.json:64:5: error: 'node_03' has the id 3, and there is no 'node_3': a device makes no node of it [id-not-canonical]
   64 |     "node_03": {
      |     ^~~~~~~~~
      = hint: rename it to 'node_3'
)");
}

TEST_F(DoorCameraTest, TwoNodesWithOneKey) {
    AssertReports(
        R"("node_4": {
      "node_opts": {
        "node_name": "Person)",
        R"("node_5": {
      "node_opts": {
        "node_name": "Person)",
        R"(door.json:90:5: warning: 'node_5' stands in this object already: this one wins, and the one before is lost [duplicate-key]
   90 |     "node_5": {
      |     ^~~~~~~~
door.json:76:5: note: this one is lost
   76 |     "node_5": {
      |     ^~~~~~~~
      = hint: remove one of them, or rename it

door.json:109:27: warning: no node of the pipe gives the stream 'persons' [no-producer]
  109 |         "stream_input_0": "persons",
      |                           ^~~~~~~~~
      = hint: name a stream that a node of the pipe gives, or add a node that
              gives it
)");
}

TEST_F(DoorCameraTest, ANumberOfThreadsInQuotes) {
    AssertReports(
        R"("exec_thread_num": 4)",
        R"("exec_thread_num": "4")",
        R"(door.json:11:40: warning: 'exec_thread_num' is a string, not a number: a device gets 0 threads [thread-count]
   11 |     "thread_opts": {"exec_thread_num": "4"},
      |                                        ^~~
      = hint: write a whole number from 1 on, without quotes
)");
}

TEST_F(DoorCameraTest, AnOptionThatIsNotStored) {
    AssertReports(
        R"("wide_dynamic_range": "auto")",
        R"("wide_dynamic_range": true)",
        R"(door.json:43:31: warning: 'wide_dynamic_range' is not stored: an option is a number or a text, not a boolean [option-not-stored]
   43 |         "wide_dynamic_range": true,
      |                               ^~~~
      = hint: write 1 in place of true
)");
}

TEST_F(DoorCameraTest, AnOptionThatIsTooLong) {
    AssertReports(
        R"("label": "Front door")",
        R"("label": "Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door Front door ")",
        R"(door.json:118:71: error: 'label' is not stored: its text has 132 bytes, and 127 are the most [option-too-long]
  118 | ..._width": 2, "label": "Front door Front door Front door Front door Front door Front doo...
      |                         ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
      = hint: shorten the text by 5 bytes
)");
}

TEST_F(DoorCameraTest, ACommaInANumber) {
    AssertReports(
        R"("float:2.2")",
        R"("float:2,2")",
        R"(door.json:44:18: warning: 'gamma' is stored as 2.0: ',2' behind the number in 'float:2,2' is ignored [typed-value]
   44 |         "gamma": "float:2,2",
      |                  ^~~~~~~~~~~
      = hint: write "float:2.2"
)");
}

TEST_F(DoorCameraTest, HexadecimalForInt32) {
    AssertReports(
        R"("int64:0x400000000")",
        R"("int32:0x400000000")",
        R"(door.json:165:22: warning: 'max_bytes' is stored as 0: 'x400000000' behind the number in 'int32:0x400000000' is ignored [typed-value]
  165 |         "max_bytes": "int32:0x400000000",    // 16 GiB
      |                      ^~~~~~~~~~~~~~~~~~~
      = hint: write "int64:0x400000000"
)");
}

TEST_F(DoorCameraTest, AMisspeltTypeWord) {
    AssertReports(
        R"("int64:0x400000000")",
        R"("int46:0x400000000")",
        R"(door.json:165:22: warning: 'max_bytes' is stored as the text 'int46:0x400000000': 'int46' is no type word [type-word]
  165 |         "max_bytes": "int46:0x400000000",    // 16 GiB
      |                      ^~~~~~~~~~~~~~~~~~~
      = hint: write "int64:0x400000000"
)");
}

TEST_F(DoorCameraTest, AGapBetweenPipes) {
    AssertReports(
        R"("pipe_1": {)",
        R"("pipe_2": {)",
        R"(door.json:197:3: error: the index 1 has no pipe: a device asks for the indexes 0 to 1, and never for 'pipe_2' [pipe-gap]
  197 |   "pipe_2": {
      |   ^~~~~~~~
      = hint: rename 'pipe_2' to 'pipe_1'
)");
}

TEST_F(DoorCameraTest, AMisspeltMode) {
    AssertReports(
        R"("stream_mode_in": "remain_newest",
        "stream_output": "persons")",
        R"("stream_mode_in": "remain-newest",
        "stream_output": "persons")",
        R"(door.json:85:27: warning: 'remain-newest' is not "remain_newest": it has no effect [stream-mode]
   85 |         "stream_mode_in": "remain-newest",
      |                           ^~~~~~~~~~~~~~~
      = hint: write "remain_newest"
)");
}

TEST_F(DoorCameraTest, AMisspeltSection) {
    AssertReports(
        R"("port": 8554, "url": "rtsp://0.0.0.0/door"},
      "stream_opts")",
        R"("port": 8554, "url": "rtsp://0.0.0.0/door"},
      "stream_opt")",
        R"(door.json:176:5: error: 'node_11' has neither inputs nor outputs: its set-up fails [no-streams]
  176 |     "node_11": {
      |     ^~~~~~~~~
door.json:178:7: note: this is probably meant
  178 |       "stream_opt": {
      |       ^~~~~~~~~~~~
      = hint: rename 'stream_opt' to "stream_opts"
)");
}

TEST_F(DoorCameraTest, AMissingBracket) {
    AssertReports(R"(  }
}
)",
                  R"(  }
)",
                  R"(door.json:273:1: error: unexpected end of input [syntax]
  273 | 
      | ^
door.json:9:1: note: opened here
    9 | {
      | ^
      = hint: close the object with }
)");
}

TEST_F(DoorCameraTest, AFormatThatIsANumber) {
    AssertReports(
        R"("stream_fmt_in_0": "boxes")",
        R"("stream_fmt_in_0": 3)",
        R"(door.json:110:28: error: the format of the input stream is a number, not a text: throws [stream-not-text]
  110 |         "stream_fmt_in_0": 3,
      |                            ^
      = hint: write a plain text of at most 127 bytes
)");
}

TEST_F(DoorCameraTest, OneFormatForTwoInputs) {
    AssertReports(
        R"(        "stream_fmt_in_1": "boxes",
)",
        R"()",
        R"(door.json:111:9: error: the input stream 'faces' has no format: 'stream_fmt_in_1' is missing, which throws [stream-format-missing]
  111 |         "stream_input_1": "faces",
      |         ^~~~~~~~~~~~~~~~
      = hint: add "stream_fmt_in_1": "..." to "stream_opts"
)");
}

TEST_F(DoorCameraTest, AMisspeltNodeKey) {
    AssertReports(
        R"("node_12": {)",
        R"("nod_12": {)",
        R"(door.json:183:5: warning: 'nod_12' is no key of a pipe: a device ignores it [unknown-key]
  183 |     "nod_12": {
      |     ^~~~~~~~
      = hint: write 'node_12'
)");
}

TEST_F(DoorCameraTest, SingleQuotes) {
    AssertReports(R"("codec": "h265")",
                  R"("codec": 'h265')",
                  R"(door.json:133:18: error: expected value, got ''' (39) [syntax]
  133 |         "codec": 'h265',
      |                  ^
      = hint: write double quotes in place of single ones
)");
}

TEST_F(DoorCameraTest, AnEmptyStreamName) {
    AssertReports(
        R"("stream_output": "tracks")",
        R"("stream_output": "")",
        R"(door.json:113:26: error: the name of the output stream is empty: it is refused, the node is not initialised, and success is reported [stream-name-empty]
  113 |         "stream_output": "",
      |                          ^~
      = hint: name the stream
)");
}

TEST_F(DoorCameraTest, OptionsOutsideNodeOpts) {
    AssertReports(
        R"("node_opts": {"node_name": "Overlay", "line_width": 2, "label": "Front door"},)",
        R"("node_name": "Overlay", "line_width": 2, "label": "Front door",)",
        R"(door.json:117:5: error: 'node_7' has no "node_opts": no node is made [node-name]
  117 |     "node_7": {
      |     ^~~~~~~~
door.json:118:7: note: this does not count here
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |       ^~~~~~~~~~~
      = hint: move 'node_name' to "node_opts"

door.json:118:31: warning: 'line_width' is no key of a node: a device ignores it [unknown-key]
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |                               ^~~~~~~~~~~~
      = hint: if it is an option, move it into "node_opts"

door.json:118:48: warning: 'label' is no key of a node: a device ignores it [unknown-key]
  118 |       "node_name": "Overlay", "line_width": 2, "label": "Front door",
      |                                                ^~~~~~~
      = hint: if it is an option, move it into "node_opts"
)");
}

TEST_F(DoorCameraTest, AFractionThatIsDropped) {
    AssertReports(
        R"("gain_db": "float:6")",
        R"("gain_db": 6.5)",
        R"(door.json:207:94: warning: 'gain_db' is stored as 6: the fraction of '6.5' is dropped [number-lost]
  207 | ...opts": {"node_name": "SoundCapture", "device": "hw:0", "rate": 16000, "gain_db": 6.5},
      |                                                                                     ^~~
      = hint: write "float:6.5"
)");
}

TEST_F(DoorCameraTest, AStreamInTheExtraOptions) {
    AssertReports(
        R"("stream_opts": {
        "stream_input": "preview_video")",
        R"("stream_opts_extra": {
        "stream_input": "preview_video")",
        R"(door.json:176:5: error: 'node_11' has neither inputs nor outputs: its set-up fails [no-streams]
  176 |     "node_11": {
      |     ^~~~~~~~~
door.json:179:9: note: this does not count here
  179 |         "stream_input": "preview_video",
      |         ^~~~~~~~~~~~~~
door.json:180:9: note: this does not count here
  180 |         "stream_fmt_in": "video:h264"
      |         ^~~~~~~~~~~~~~~
      = hint: move 'stream_input' and 'stream_fmt_in' to "stream_opts"
)");
}

TEST_F(DoorCameraTest, AMisspeltKey) {
    AssertReports(
        R"("stream_output": "sound")",
        R"("stream_ouput": "sound")",
        R"(door.json:244:9: warning: 'stream_ouput' is nearly "stream_output", but is stored as an option like any other [unknown-key]
  244 |         "stream_ouput": "sound",
      |         ^~~~~~~~~~~~~~
      = hint: write "stream_output"
)");
}

}  // namespace
