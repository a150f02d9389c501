# Every run of an example. Each one calls
#
#   example(NAME PROGRAM [RESULT CODE] [ARGUMENTS ...])
#
# which the including file defines: with these arguments, in the directory with the
# examples, PROGRAM prints expected/NAME.txt, and expected/NAME.err on standard
# error; if a file does not exist, PROGRAM prints nothing there. CODE is the exit
# code, 0 by default. PLUGIN is the shared library.

foreach(configuration first door-camera audio-front-end sensor-fusion blend)
    example(ask_everything.${configuration} ask_everything ARGUMENTS ${configuration}.json)
    example(own_framework.${configuration} own_framework ARGUMENTS ${configuration}.json)
endforeach()
example(own_node.blend own_node ARGUMENTS blend.json)
example(own_node.first own_node ARGUMENTS first.json)

# The command, with input that none of its other tests inspects.
example(inspect.audio-front-end qvgraph ARGUMENTS inspect audio-front-end.json)
example(inspect.sensor-fusion qvgraph ARGUMENTS inspect sensor-fusion.json)
example(inspect.blend qvgraph ARGUMENTS inspect blend.json)
example(own_plugin.blend qvgraph ARGUMENTS inspect --plugin ${PLUGIN} blend.json)

# The results of mistakes.
set(DATA ../tests/examples/data)
foreach(program ask_everything own_framework own_node)
    example(${program}.usage ${program} RESULT 2)
    example(${program}.no-file ${program} RESULT 2 ARGUMENTS no-such-file.json)
    example(${program}.broken ${program} RESULT 2 ARGUMENTS ${DATA}/broken.json)
endforeach()
example(own_framework.faulty own_framework RESULT 1 ARGUMENTS ${DATA}/faulty.json)
example(own_node.faulty own_node RESULT 1 ARGUMENTS ${DATA}/faulty.json)
example(own_node.nameless own_node RESULT 1 ARGUMENTS ${DATA}/nameless.json)
