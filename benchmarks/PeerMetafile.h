// The peer that records metafiles: libEMF. Its header brings a <windows.h> of its own, so that nothing of ours may
// be included beside it; PeerMetafile.cpp includes nothing else, and this header has types of the language only.
#pragma once

#include <string>

// A metafile that is being recorded. Points are x and y in turn; a style of -1 is a hollow brush, -2 a solid one, else
// a hatch of libEMF.
class PeerMetafile {
public:
    static constexpr int Hollow = -1;
    static constexpr int Solid = -2;

    // Frame in hundredths of a millimetre, extents in logical units.
    PeerMetafile(int frameWidth, int frameHeight, int width, int height);
    PeerMetafile(const PeerMetafile&) = delete;
    PeerMetafile& operator=(const PeerMetafile&) = delete;
    ~PeerMetafile();

    void setPen(unsigned int color, bool dashed, unsigned int width);
    void setBrush(unsigned int color, int style);
    void rectangle(int left, int top, int right, int bottom);
    void ellipse(int left, int top, int right, int bottom);
    void line(int x1, int y1, int x2, int y2);
    void polygon(const int* points, unsigned int count);
    void polyline(const int* points, unsigned int count);
    // The stock pen and brush that draw nothing, until the next setPen and setBrush.
    void setNoPen();
    // Ends the recording and leaves its bytes in `page`.
    void close(std::string& page);

private:
    struct Recording;
    Recording* m_recording;
};
