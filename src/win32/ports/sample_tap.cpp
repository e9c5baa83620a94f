#include "win32/ports/sample_tap.h"

#include <dshow.h>
#include <mmreg.h>

#include <cstring>
#include <span>

// The system's grabber, whose header is no longer part of its development kits.
struct SystemGrabberCallback : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SampleCB(double time, IMediaSample* sample) = 0;
  virtual HRESULT STDMETHODCALLTYPE BufferCB(double time, BYTE* bytes, long length) = 0;
};
struct SystemSampleGrabber : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetOneShot(BOOL stops) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetMediaType(const AM_MEDIA_TYPE* type) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetConnectedMediaType(AM_MEDIA_TYPE* type) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetBufferSamples(BOOL keeps) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentBuffer(long* length, long* buffer) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentSample(IMediaSample** sample) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetCallback(SystemGrabberCallback* callback, long which) = 0;
};

namespace ordelan::win32 {
namespace {

constexpr CLSID kGrabber = {
    0xC1F400A0, 0x3F08, 0x11D3, {0x9F, 0x0B, 0x00, 0x60, 0x08, 0x03, 0x9E, 0x37}};
constexpr IID kGrabberInterface = {
    0x6B652FFF, 0x11FE, 0x4FCE, {0x92, 0xAD, 0x02, 0x66, 0xB5, 0xD7, 0xC7, 0x8F}};
constexpr IID kCallbackInterface = {
    0x0579154A, 0x2B53, 0x4994, {0xB0, 0xD0, 0xE7, 0x73, 0x14, 0x8E, 0xFF, 0x85}};
// The format tags of samples as they are, and of those with a fraction.
constexpr WORD kWhole = 1;
constexpr WORD kFraction = 3;
constexpr WORD kExtensible = 0xFFFE;

// A media type whose parts are given back at the end.
struct MediaType : AM_MEDIA_TYPE {
  MediaType() : AM_MEDIA_TYPE{} {}
  ~MediaType() {
    if (pbFormat) CoTaskMemFree(pbFormat);
    if (pUnk) pUnk->Release();
  }
  MediaType(const MediaType&) = delete;
  MediaType& operator=(const MediaType&) = delete;
};

SampleFormat format_of(const AM_MEDIA_TYPE& type) {
  if (!IsEqualGUID(type.formattype, FORMAT_WaveFormatEx) || !type.pbFormat ||
      type.cbFormat < sizeof(PCMWAVEFORMAT)) {
    return {};
  }
  PCMWAVEFORMAT wave;
  std::memcpy(&wave, type.pbFormat, sizeof wave);
  WORD tag = wave.wf.wFormatTag;
  if (tag == kExtensible && type.cbFormat >= sizeof(WAVEFORMATEXTENSIBLE)) {
    WAVEFORMATEXTENSIBLE extensible;
    std::memcpy(&extensible, type.pbFormat, sizeof extensible);
    tag = static_cast<WORD>(extensible.SubFormat.Data1);
  }
  if (tag != kWhole && tag != kFraction) return {};
  return {static_cast<int>(wave.wf.nSamplesPerSec), wave.wf.nChannels, wave.wBitsPerSample,
          tag == kFraction};
}

// The first pin of that direction, connected or not; null without one.
ComPtr<IPin> pin_of(IBaseFilter* filter, PIN_DIRECTION wanted) {
  ComPtr<IEnumPins> pins;
  if (FAILED(filter->EnumPins(pins.out()))) return {};
  ComPtr<IPin> pin;
  while (pins->Next(1, pin.out(), nullptr) == S_OK) {
    PIN_DIRECTION direction{};
    if (SUCCEEDED(pin->QueryDirection(&direction)) && direction == wanted) return pin;
  }
  return {};
}

void disconnect(IGraphBuilder* graph, IPin* one, IPin* other) {
  graph->Disconnect(one);
  graph->Disconnect(other);
}

}  // namespace

class SampleTap::Receiver final : public SystemGrabberCallback {
 public:
  explicit Receiver(std::shared_ptr<SampleRing> ring) : ring_(std::move(ring)) {}

  void expect(SampleFormat format) {
    format_ = format;
    ring_->start(format.rate);
  }
  void begin_at(double seconds) { begin_ = seconds; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool own = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, kCallbackInterface);
    *object = own ? this : nullptr;
    if (own) AddRef();
    return own ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // On the graph's streaming thread. A failure would end the sound, so there is none.
  HRESULT STDMETHODCALLTYPE SampleCB(double time, IMediaSample* sample) override {
    constexpr double kUnits = 1e7;
    REFERENCE_TIME begin = 0;
    REFERENCE_TIME end = 0;
    BYTE* bytes = nullptr;
    if (SUCCEEDED(sample->GetTime(&begin, &end))) time = static_cast<double>(begin) / kUnits;
    const long length = sample->GetActualDataLength();
    if (length > 0 && SUCCEEDED(sample->GetPointer(&bytes)) && bytes) {
      ring_->add(begin_ + time, mix(format_, std::span(bytes, static_cast<std::size_t>(length))));
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE BufferCB(double, BYTE*, long) override { return S_OK; }

 private:
  ~Receiver() = default;

  std::atomic<ULONG> references_ = 1;
  std::shared_ptr<SampleRing> ring_;
  SampleFormat format_;
  std::atomic<double> begin_ = 0;
};

SampleTap::SampleTap(std::shared_ptr<SampleRing> ring) : receiver_(new Receiver(std::move(ring))) {}

SampleTap::~SampleTap() {
  if (grabber_) grabber_->SetCallback(nullptr, 0);
}

SampleTap::Result SampleTap::put_before(IBaseFilter* renderer, IGraphBuilder* graph) {
  const ComPtr<IPin> last = pin_of(renderer, PINDIR_INPUT);
  ComPtr<IPin> first;
  MediaType type;
  if (!last || FAILED(last->ConnectedTo(first.out())) || FAILED(last->ConnectionMediaType(&type)) ||
      !format_of(type).valid()) {
    return Result::left_out;
  }
  ComPtr<IBaseFilter> filter;
  if (FAILED(CoCreateInstance(kGrabber, nullptr, CLSCTX_INPROC_SERVER, IID_IBaseFilter,
                              filter.out_void()))) {
    return Result::left_out;
  }
  grabber_ = filter.as<SystemSampleGrabber>(kGrabberInterface);
  if (!grabber_ || FAILED(grabber_->SetMediaType(&type)) ||
      FAILED(graph->AddFilter(filter.get(), L"Muestras"))) {
    return Result::left_out;
  }
  const ComPtr<IPin> in = pin_of(filter.get(), PINDIR_INPUT);
  const ComPtr<IPin> out = pin_of(filter.get(), PINDIR_OUTPUT);
  disconnect(graph, first.get(), last.get());
  if (in && out && SUCCEEDED(graph->ConnectDirect(first.get(), in.get(), &type)) &&
      SUCCEEDED(graph->ConnectDirect(out.get(), last.get(), &type))) {
    receiver_->expect(format_of(type));
    grabber_->SetBufferSamples(FALSE);
    grabber_->SetCallback(receiver_.get(), 0);
    return Result::in_place;
  }
  // As it was before.
  graph->RemoveFilter(filter.get());
  grabber_ = {};
  disconnect(graph, first.get(), last.get());
  const bool whole = SUCCEEDED(graph->ConnectDirect(first.get(), last.get(), &type));
  return whole ? Result::left_out : Result::broken;
}

void SampleTap::begin_at(double seconds) {
  receiver_->begin_at(seconds);
}

ComPtr<IBaseFilter> audio_renderer_of(IGraphBuilder* graph) {
  ComPtr<IEnumFilters> filters;
  if (FAILED(graph->EnumFilters(filters.out()))) return {};
  ComPtr<IBaseFilter> filter;
  while (filters->Next(1, filter.out(), nullptr) == S_OK) {
    const ComPtr<IPin> in = pin_of(filter.get(), PINDIR_INPUT);
    ComPtr<IPin> before;
    if (filter.as<IBasicAudio>(IID_IBasicAudio) && in && !pin_of(filter.get(), PINDIR_OUTPUT) &&
        SUCCEEDED(in->ConnectedTo(before.out()))) {
      return filter;
    }
  }
  return {};
}

}  // namespace ordelan::win32
