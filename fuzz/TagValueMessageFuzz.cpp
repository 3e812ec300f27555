// Tag=value messages through the example messages of FIX and SIAC Canonical: a real one of the kind that the first byte
// picks, with pieces of the input written over it, or the input itself. What is read without a failure and written is
// read again, and then written as it was.

#include "examples/messages/ExecutionReport.h"
#include "examples/messages/MarketDataSnapshotFullRefresh.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/News.h"
#include "examples/messages/SIACOrder.h"
#include "tests/FuzzInput.h"
#include "tests/TagValueText.h"

namespace {

using namespace examples;

// BodyLength and CheckSum are the business of rules that are not asked; '|' stands for SOH.
constexpr char const *SAMPLES[] = {
    "8=FIX.4.4|9=1|35=D|49=A|56=B|34=7|52=20240315-14:30:00|11=ID|453=2|448=P|447=D|452=1|448=Q|452=3|1=ACC|78=1|79=X|"
    "80=5|21=1|18=G|55=IBM|54=1|60=20240315-14:30:00|38=100|40=2|44=191.125|99=3|15=USD|59=0|58=text|354=3|355=a|b|10="
    "0|",
    "8=FIX.4.4|9=1|35=8|49=A|56=B|34=7|37=O|11=ID|382=2|375=M|437=5|438=20240315-14:30:00|375=N|17=E|150=F|39=1|55=IBM|"
    "54=1|38=100|31=1.5|32=5|151=95|14=5|6=1.5|60=20240315-14:30:00|10=0|",
    "8=FIX.4.4|9=1|35=W|49=A|34=7|262=R|55=IBM|48=4741|22=8|207=N|291=1|451=-0.5|268=3|269=0|270=191.25|15=USD|271=300|"
    "276=A|282=D|346=2|290=1|269=1|270=191.5|271=100|269=B|271=12000|10=0|",
    "8=FIX.4.4|9=1|35=B|34=7|42=20260105-09:30:00|61=1|148=H|33=2|58=a=b|58=c|149=u|95=10|96=|10=000||1|10=0|",
    "10001=Canonical|10002=1|25001=32|10003=ORD|10005=DESK|10006=FLOOR|10007=7|11001=AB-0042|11002=SPREAD|11003=B|"
    "11004=300|11005=2.75|11006=20240315-14:30:00|11007=N|11020={|11021=F|11022=1|11023=12.125|26999= |11021=KO|"
    "11022=-2|11023=59.875|26999= |26000=}|10=123|"};

template <class Message>
void readAndWrite(std::string const &text) {
  static SmartPtr<Message> const message(new Message);
  TransformContext context;
  auto const written = [&](Binary const &bytes) {
    SmartPtr<DataObject> const parsed = message->parse(bytes, context);
    message->validate2(parsed, context);
    return message->serialize(parsed, context);
  };
  Binary first;
  try {
    first = written(Binary(text.data(), text.size()));
  } catch (TransformException const &) {
    return;
  }
  require(written(first) == first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  size_t const kind = input.below(std::size(SAMPLES));
  static constexpr void (*MESSAGES[])(std::string const &) = {
      readAndWrite<NewOrderSingleMessage>, readAndWrite<ExecutionReportMessage>,
      readAndWrite<MarketDataSnapshotFullRefreshMessage>, readAndWrite<NewsMessage>, readAndWrite<SIACOrderMessage>};
  MESSAGES[kind](input.below(4) != 0 ? withSOH(mutated(SAMPLES[kind], input, 16)) : withSOH(input.takeText(size)));
  return 0;
}
