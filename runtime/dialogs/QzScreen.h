#pragma once
// TQzScreen: the runtime's screen object. Long work (refreshing packages,
// filling big lists) brackets itself with BeginUpdate/EndUpdate so the user
// sees the wait cursor and the open windows are not repainted half-way;
// the brackets nest, and only the outermost pair acts.

class TQzScreen {
public:
    void BeginUpdate();
    // An EndUpdate without its BeginUpdate is ignored.
    void EndUpdate();
    bool Updating() const { return FUpdateCount > 0; }

    // The available area of the primary screen and its resolution; without
    // a screen (no application yet) 0.
    int Width() const;
    int Height() const;
    int PixelsPerInch() const;

private:
    int FUpdateCount = 0;
};

extern TQzScreen* const QzScreen;

// BeginUpdate for the lifetime of a scope, so an exception cannot leave the
// screen frozen.
class TQzScreenUpdate {
public:
    TQzScreenUpdate() { QzScreen->BeginUpdate(); }
    ~TQzScreenUpdate() { QzScreen->EndUpdate(); }
    TQzScreenUpdate(const TQzScreenUpdate&) = delete;
    TQzScreenUpdate& operator=(const TQzScreenUpdate&) = delete;
};
