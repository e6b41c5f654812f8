//---------------------------------------------------------------------------
#ifndef AboutH
#define AboutH
//---------------------------------------------------------------------------
#include "QzForms.hpp"
//---------------------------------------------------------------------------
class TAboutBox : public TQzCForm
{
__published:	// IDE-managed Components
private:	// User declarations
public:		// User declarations
    __fastcall TAboutBox(TComponent* Owner);
};
//---------------------------------------------------------------------------
extern PACKAGE TAboutBox *AboutBox;
//---------------------------------------------------------------------------
#endif
