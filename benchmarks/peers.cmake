# The libraries that single benchmarks measure beside, one line each:
#   peer(XMLBenchmark libpugixml-dev pugixml.hpp pugixml)
