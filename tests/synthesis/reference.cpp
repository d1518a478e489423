#include "reference.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace synthref {

uint32_t drawBelow(uint32_t high) {
  if (high == 0) return 0;
  const uint32_t r = static_cast<uint32_t>(rand());
  return r / (0x7fffffffu / high + 1u);
}

namespace {

int32_t sq(int32_t v) { return static_cast<int32_t>(static_cast<uint32_t>(v) * static_cast<uint32_t>(v)); }
int32_t radius2(const Pt& p) {
  return static_cast<int32_t>(static_cast<uint32_t>(sq(p.x)) + static_cast<uint32_t>(sq(p.y)));
}
const Pt& P(const void* v) { return *static_cast<const Pt*>(v); }

}  // namespace

int cmpLessCartesian(const void* a, const void* b) { return radius2(P(a)) < radius2(P(b)) ? -1 : 1; }
int cmpMoreHorizontal(const void* a, const void* b) { return sq(P(a).x) >= sq(P(b).x) ? -1 : 1; }
int cmpMoreVertical(const void* a, const void* b) { return sq(P(a).y) >= sq(P(b).y) ? -1 : 1; }
int cmpLessHorizontal(const void* a, const void* b) { return sq(P(a).x) < sq(P(b).x) ? -1 : 1; }
int cmpLessVertical(const void* a, const void* b) { return sq(P(a).y) < sq(P(b).y) ? -1 : 1; }

namespace {

int cmpMoreRatio(const void* a, const void* b) {
  const float ra = static_cast<const RatioPoint*>(a)->ratio;
  const float rb = static_cast<const RatioPoint*>(b)->ratio;
  return ra >= rb ? -1 : 1;
}

int cmpLessRatio(const void* a, const void* b) {
  const float ra = static_cast<const RatioPoint*>(a)->ratio;
  const float rb = static_cast<const RatioPoint*>(b)->ratio;
  if (std::isnan(ra) || std::isnan(rb)) return -1;
  return ra < rb ? -1 : 1;
}

Pt centreOf(const std::vector<Pt>& points) {
  int32_t minX = 0x7fffffff, minY = 0x7fffffff, maxX = 0, maxY = 0;
  for (const Pt& p : points) {
    if (p.x < minX) minX = p.x;
    if (p.y < minY) minY = p.y;
    if (p.x > maxX) maxX = p.x;
    if (p.y > maxY) maxY = p.y;
  }
  return {(maxX - minX) / 2 + minX, (maxY - minY) / 2 + minY};
}

}  // namespace

int angularBin(Pt s) {
  const double angle =
      std::atan2(static_cast<double>(static_cast<float>(s.y)), static_cast<double>(static_cast<float>(s.x)));
  return static_cast<int>(angle * 63.66197723675814 + 200.0);
}

std::vector<RatioPoint> ratiosOf(const std::vector<Pt>& shifted) {
  std::vector<uint32_t> most(401, 0);
  for (const Pt& s : shifted) {
    const auto r = static_cast<uint32_t>(radius2(s));
    uint32_t& m = most[angularBin(s)];
    if (r > m) m = r;
  }
  std::vector<RatioPoint> out;
  for (const Pt& s : shifted) {
    const float num = static_cast<float>(radius2(s));
    const float den = static_cast<float>(most[angularBin(s)]);
    out.push_back({s.x, s.y, den == 0.0f ? std::nanf("") : num / den});
  }
  return out;
}

std::vector<Pt> sortedOnly(std::vector<Pt> points, uint32_t order) {
  const Pt c = centreOf(points);
  for (Pt& p : points) p = {p.x - c.x, p.y - c.y};
  if (order == 2 || order == 5 || order == 8) {
    std::vector<RatioPoint> r = ratiosOf(points);
    qsort(r.data(), r.size(), sizeof(RatioPoint), order == 5 ? cmpLessRatio : cmpMoreRatio);
    for (size_t i = 0; i < r.size(); ++i) points[i] = {r[i].x, r[i].y};
  } else {
    int (*cmp)(const void*, const void*) = order == 3   ? cmpMoreHorizontal
                                           : order == 4 ? cmpMoreVertical
                                           : order == 6 ? cmpLessHorizontal
                                                        : cmpLessVertical;
    qsort(points.data(), points.size(), sizeof(Pt), cmp);
  }
  for (Pt& p : points) p = {p.x + c.x, p.y + c.y};
  return points;
}

void loosenPoints(std::vector<Pt>& points) {
  const int n = static_cast<int>(points.size());
  const int w = static_cast<int>(n * 0.1);
  for (int i = 0; i < n; ++i) {
    const int low = std::max(i - w, 0);
    const int high = std::min(i + w, n - 1);
    const int j = low + static_cast<int>(drawBelow(static_cast<uint32_t>(high - low)));
    std::swap(points[i], points[j]);
  }
}

std::vector<Pt> orderPoints(std::vector<Pt> points, uint32_t order) {
  if (order <= 1) {
    for (size_t i = 0; i < points.size(); ++i)
      std::swap(points[i], points[drawBelow(static_cast<uint32_t>(points.size()))]);
    return points;
  }
  points = sortedOnly(points, order);
  loosenPoints(points);
  return points;
}

Layout layoutOfFormat(int format) {
  const bool alpha = format == 1 || format == 3;
  const int colours = (format == 0 || format == 1) ? 3 : 1;
  const int mapStart = colours + 1 + (alpha ? 1 : 0);
  return {colours + 1, alpha ? colours + 1 : -1, mapStart, mapStart, colours, 0, mapStart, alpha, alpha};
}

std::vector<uint32_t> colorTable(float sensitivity) {
  std::vector<uint32_t> t(512);
  const double scale = static_cast<double>(sensitivity * 256.0f);
  const double norm = 1.0 / std::log((256.0 / scale) * (256.0 / scale) + 1.0);
  for (int d = -256; d < 256; ++d) {
    const double v = d * (1.0 / scale);
    t[d + 256] = static_cast<uint16_t>(static_cast<int64_t>(std::log(v * v + 1.0) * 65535.0 * norm));
  }
  return t;
}

std::vector<uint32_t> mapTable(float mapWeight) {
  std::vector<uint32_t> t(512);
  t[0] = static_cast<uint32_t>(static_cast<int64_t>(static_cast<double>(mapWeight * 65536.0f) * 4.0));
  for (int d = -255; d < 256; ++d) {
    t[d + 256] =
        static_cast<uint32_t>(static_cast<int64_t>(static_cast<double>(static_cast<float>(d * d) * mapWeight) * 4.0));
  }
  return t;
}

namespace {

struct Nb {
  uint8_t px[8];
  Pt off;
  Pt src;
};

struct Engine {
  Layout L;
  Grid& T;
  const Grid& C;
  Params prm;
  std::vector<uint32_t> cd, md;
  std::vector<uint8_t> valued;
  std::vector<Pt> source;
  std::vector<uint32_t> stamp;
  std::vector<Pt> offsets, corpusList;
  std::vector<Nb> nbs;

  bool inCorpus(Pt q) const { return q.x >= 0 && q.y >= 0 && q.x < C.w && q.y < C.h && C.at(q.x, q.y)[0] == 255; }

  void gather(Pt t) {
    nbs.clear();
    Nb self{};
    std::memcpy(self.px, T.at(t.x, t.y), L.bpp);
    self.off = offsets[0];
    self.src = source[t.y * T.w + t.x];
    nbs.push_back(self);
    for (size_t k = 1; k < offsets.size(); ++k) {
      Pt p{t.x + offsets[k].x, t.y + offsets[k].y};
      if ((p.x < 0 || p.x >= T.w) && !prm.wrapH) continue;
      if ((p.y < 0 || p.y >= T.h) && !prm.wrapV) continue;
      p.x = ((p.x % T.w) + T.w) % T.w;
      p.y = ((p.y % T.h) + T.h) % T.h;
      if (!valued[p.y * T.w + p.x]) continue;
      Nb nb{};
      std::memcpy(nb.px, T.at(p.x, p.y), L.bpp);
      nb.off = offsets[k];
      nb.src = source[p.y * T.w + p.x];
      nbs.push_back(nb);
      if (nbs.size() >= prm.neighbourLimit) break;
    }
  }

  // The whole cost, without abandoning.
  uint64_t cost(Pt c) const {
    uint64_t sum = 0;
    for (size_t j = 0; j < nbs.size(); ++j) {
      const Pt q{c.x + nbs[j].off.x, c.y + nbs[j].off.y};
      if (!inCorpus(q)) {
        sum += static_cast<uint64_t>(L.colorCount) * 65535 + static_cast<uint64_t>(L.mapCount) * md[0];
        continue;
      }
      const uint8_t* cp = C.at(q.x, q.y);
      if (j != 0)
        for (int e = 1; e < L.colorEnd; ++e) sum += cd[256 + nbs[j].px[e] - cp[e]];
      for (int e = L.mapStart; e < L.mapEnd; ++e) sum += md[256 + nbs[j].px[e] - cp[e]];
    }
    return sum;
  }

  // Returns true when t changed its source.
  bool visit(Pt t, uint32_t i) {
    gather(t);
    uint64_t best = 0xFFFFFFFFu;
    bool found = false, done = false;
    Pt match{0, 0};
    for (const Nb& nb : nbs) {
      if (nb.src.x == -1) continue;
      const Pt c{nb.src.x - nb.off.x, nb.src.y - nb.off.y};
      if (!inCorpus(c)) continue;
      if (stamp[c.y * C.w + c.x] == i) continue;
      const uint64_t k = cost(c);
      if (k < best) {
        found = true;
        match = c;
        best = k;
        if (k == 0) {
          done = true;
          break;
        }
      }
      stamp[c.y * C.w + c.x] = i;
    }
    for (uint32_t p = 0; !done && p < prm.probeLimit; ++p) {
      const Pt c = corpusList[drawBelow(static_cast<uint32_t>(corpusList.size()))];
      const uint64_t k = cost(c);
      if (k < best) {
        found = true;
        match = c;
        best = k;
        done = k == 0;
      }
    }
    bool changed = false;
    Pt& s = source[t.y * T.w + t.x];
    if (found && !(s == match)) {
      for (int e = 1; e < L.colorEnd; ++e) T.at(t.x, t.y)[e] = C.at(match.x, match.y)[e];
      s = match;
      changed = true;
    }
    valued[t.y * T.w + t.x] = 1;
    return changed;
  }
};

}  // namespace

Run runEngine(const Layout& layout, Grid target, const Grid& corpus, const Params& params, int cancelAtReport) {
  Run run;
  if (params.neighbourLimit > 64) return run.result = 3, run;
  std::vector<Pt> targets;
  for (int y = 0; y < target.h; ++y)
    for (int x = 0; x < target.w; ++x)
      if (target.at(x, y)[0] != 0) targets.push_back({x, y});
  if (targets.empty()) return run.result = 5, run;
  Engine e{layout, target, corpus, params, {}, {}, {}, {}, {}, {}, {}, {}};
  for (int y = 0; y < corpus.h; ++y)
    for (int x = 0; x < corpus.w; ++x) {
      const uint8_t* p = corpus.at(x, y);
      if (p[0] == 255 && (!layout.corpusAlpha || p[layout.alphaIndex] != 0)) e.corpusList.push_back({x, y});
    }
  if (e.corpusList.empty()) return run.result = 6, run;
  for (int y = 0; y < target.h; ++y)
    for (int x = 0; x < target.w; ++x) {
      const uint8_t* p = target.at(x, y);
      const bool opaque = !layout.targetAlpha || p[layout.alphaIndex] != 0;
      e.valued.push_back(params.order != 0 && p[0] == 0 && opaque);
    }
  e.source.assign(static_cast<size_t>(target.w) * target.h, Pt{-1, -1});
  const int w = std::min(target.w, corpus.w), h = std::min(target.h, corpus.h);
  for (int y = 1 - h; y < h; ++y)
    for (int x = 1 - w; x < w; ++x) e.offsets.push_back({x, y});
  qsort(e.offsets.data(), e.offsets.size(), sizeof(Pt), cmpLessCartesian);
  e.cd = colorTable(static_cast<float>(params.sensitivity));
  e.md = mapTable(static_cast<float>(params.mapWeight));
  srand(1198472);
  if (params.order > 8) return run.result = 4, run;
  targets = orderPoints(targets, params.order);
  e.stamp.assign(static_cast<size_t>(corpus.w) * corpus.h, 0xFFFFFFFFu);
  std::vector<uint32_t> counts{static_cast<uint32_t>(targets.size()), static_cast<uint32_t>(targets.size())};
  while (counts.size() < 6) counts.push_back((3 * counts.back()) >> 2);
  uint32_t total = 0, completed = 0, last = 0;
  for (uint32_t c : counts) total += c;
  bool cancelled = cancelAtReport == 0;
  for (int k = 0; k < 6; ++k) {
    ++run.passes;
    uint32_t better = 0;
    for (uint32_t i = 0; i < counts[k]; ++i) {
      if (i % 4096 == 0) {
        completed += 4095;
        const auto percent = static_cast<int32_t>(static_cast<float>(completed) / static_cast<float>(total) * 100.0f);
        if (percent > static_cast<int32_t>(last)) {
          run.reports.push_back(percent);
          last = static_cast<uint32_t>(percent);
          if (static_cast<int>(run.reports.size()) == cancelAtReport) cancelled = true;
        }
        if (cancelled) break;
      }
      if (e.visit(targets[i], i)) ++better;
    }
    if (static_cast<double>(static_cast<float>(better) / static_cast<float>(targets.size())) < 0.1) break;
  }
  run.target = target;
  run.cancelled = cancelled;
  return run;
}

EntryRun runEntry(const std::vector<uint8_t>& image, const std::vector<uint8_t>& mask, int w, int h, int format,
                  const Params& params, int cancelAtReport) {
  const Layout layout = layoutOfFormat(format);
  const int n = layout.colorCount + (layout.targetAlpha ? 1 : 0);
  Grid target{w, h, n + 1, std::vector<uint8_t>(static_cast<size_t>(w) * h * (n + 1))};
  Grid corpus = target;
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      const size_t i = static_cast<size_t>(y) * w + x;
      target.at(x, y)[0] = mask[i];
      corpus.at(x, y)[0] = mask[i] == 0 ? 255 : 0;
      for (int k = 0; k < n; ++k) target.at(x, y)[k + 1] = corpus.at(x, y)[k + 1] = image[i * n + k];
    }
  const Run run = runEngine(layout, target, corpus, params, cancelAtReport);
  EntryRun out{run.result, image, run.reports, run.passes};
  if (run.result != 0 || run.cancelled) return out;
  for (size_t i = 0; i < static_cast<size_t>(w) * h; ++i)
    for (int k = 0; k < n; ++k) out.image[i * n + k] = run.target.px[i * (n + 1) + k + 1];
  return out;
}

}  // namespace synthref
