#pragma once
// What the mask editor does to an image's two masks, apart from the window:
// brush strokes that cut pixels away or give them back, flood fills, and an
// undo history. The masks keep the runtime's convention (Format_Mono, index
// 1 keeps a pixel, index 0 cuts it away), so storing them back is a plain
// SetInternalMask / SetExternalMask.

#include "design/images/QzMemoryImageLogic.h"

#include <QImage>
#include <QPoint>

#include <array>
#include <vector>

class TQzPicture;

class TQzRgnDocument {
public:
    // How many steps Undo goes back; older ones are forgotten.
    static constexpr int MaxUndo = 64;
    static constexpr int MaxBrush = 64;

    // picture: what the masks cover; masks that are null (the image has
    // none) or of another size start with every pixel kept.
    TQzRgnDocument(const QImage& picture, const QImage& internalMask, const QImage& externalMask);
    // Reads the picture and both masks of an image. Raises EInvalidGraphic
    // for an empty image or one that does not decode.
    static TQzRgnDocument FromPicture(const TQzPicture& picture);

    const QImage& Picture() const { return FPicture; }
    QSize Size() const { return FPicture.size(); }
    const QImage& Mask(TQzMaskKind kind) const { return FMasks[Index(kind)]; }

    // The mask the edits act on.
    TQzMaskKind Kind() const { return FKind; }
    void SetKind(TQzMaskKind kind) { FKind = kind; }

    // One edit, and so one undo step, each. cut=true takes pixels out of the
    // region (they turn transparent), cut=false puts them back. Points
    // outside the picture are clipped; an edit that changes no pixel leaves
    // no undo step.
    // A stroke is a round brush of `size` pixels drawn along the points.
    void BeginStroke(bool cut, int size);
    void StrokeTo(QPoint point);
    void EndStroke();
    bool InStroke() const { return FStroke.Active; }
    // The 4-connected area around seed: with byColor, the pixels of the
    // seed's picture colour; else those whose mask value equals the seed's.
    void Fill(QPoint seed, bool cut, bool byColor);
    void Invert();
    void SetAll(bool cut);

    bool CanUndo() const { return !FUndo.empty(); }
    bool CanRedo() const { return !FRedo.empty(); }
    void Undo();
    void Redo();
    // Whether a mask differs from the one it started with.
    bool Modified(TQzMaskKind kind) const;

    // The mask as the image stores it: null when nothing is cut away, since
    // a mask that keeps everything says no more than none.
    QImage StoredMask(TQzMaskKind kind) const;
    // Writes the modified masks into the image; false when none changed.
    bool Store(TQzPicture& picture) const;

    // The picture with the cut-away pixels fully transparent, in ARGB32.
    QImage Preview() const;

private:
    struct TStep {
        TQzMaskKind Kind;
        QImage Before;
    };
    struct TStroke {
        bool Active = false;
        bool Cut = true;
        int Size = 1;
        bool HasLast = false;
        QPoint Last;
        QImage Before;
    };
    static int Index(TQzMaskKind kind) { return kind == TQzMaskKind::Internal ? 0 : 1; }
    QImage& Current() { return FMasks[Index(FKind)]; }
    // Records before as one undo step when the current mask changed.
    void Commit(const QImage& before);
    void Dab(QPoint centre, bool cut, int size);
    void Swap(std::vector<TStep>& from, std::vector<TStep>& to);

    QImage FPicture;
    std::array<QImage, 2> FMasks;
    std::array<QImage, 2> FOriginal;
    TQzMaskKind FKind = TQzMaskKind::Internal;
    TStroke FStroke;
    std::vector<TStep> FUndo;
    std::vector<TStep> FRedo;
};
