#ifndef ORVRTF_PROGRESSBAR_H
#define ORVRTF_PROGRESSBAR_H

/*!
    How far a batch has come, in the last line of the terminal that the standard error is; nothing where it is
    no terminal.
*/
class ProgressBar {
public:
    /*! A bar that is full at \a total. */
    explicit ProgressBar(int total);
    ~ProgressBar() { clear(); }
    /*! Shows that \a done of the total are done, in place of what was shown before. */
    void show(int done);
    /*! Takes the bar away, so that other text can be written; show() brings it back. */
    void clear();

private:
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    const int m_total;
    const bool m_isTerminal;
    bool m_isShown = false;
};

#endif
