# The libraries that single benchmarks measure beside, one line each:
#   peer(XMLBenchmark libpugixml-dev pugixml.hpp pugixml)
peer(FIXBenchmark libquickfix-dev quickfix/Message.h quickfix)
older(FIXBenchmark peers/QuickFIXPeer.cpp)
peer(FIXWriteBenchmark libquickfix-dev quickfix/Message.h quickfix)
older(FIXWriteBenchmark peers/QuickFIXPeer.cpp)
peer(FIXRoadBenchmark libquickfix-dev quickfix/Message.h quickfix)
older(FIXRoadBenchmark peers/QuickFIXPeer.cpp)
set_property(GLOBAL APPEND PROPERTY TAVRONE_PEER_SOURCES_OF_FIXRoadBenchmark
             ${PROJECT_SOURCE_DIR}/examples/orderdesk/DeskOrder.cpp)
peer(StorageBenchmark libpugixml-dev pugixml.hpp pugixml)
peer(StorageBenchmark libprotobuf-dev google/protobuf/message.h protobuf)
proto(StorageBenchmark Order.proto)
